// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "platform/gdi32.h"
#include "runtime/arithmetic.h"
#include "runtime/boolean.h"
#include "runtime/numbers.h"

namespace corvane {

/// A stored value of a control; the empty one is nothing.
using PropertyValue =
    std::variant<std::monostate, Boolean, Integer, Long, Single, double, StdFont, Picture>;

/// Numbers of every kind compare by what they are worth; an empty picture is nothing.
[[nodiscard]] bool SameValue(const PropertyValue& a, const PropertyValue& b);

/// A stored value as the type that is asked for. Numbers are converted, rounded to even; one that
/// does not fit raises kOverflow, what is no such thing kTypeMismatch.
[[nodiscard]] Boolean CBool(const PropertyValue& value);
[[nodiscard]] Integer CInt(const PropertyValue& value);
[[nodiscard]] Long CLng(const PropertyValue& value);
[[nodiscard]] Single CSng(const PropertyValue& value);
[[nodiscard]] double CDbl(const PropertyValue& value);
[[nodiscard]] StdFont AsFont(const PropertyValue& value);
[[nodiscard]] Picture AsPicture(const PropertyValue& value);

/// What a control keeps between its lives, by keys without regard to case.
class PropertyBag {
public:
    [[nodiscard]] PropertyValue ReadProperty(std::string_view key,
                                             const PropertyValue& defaultValue) const;
    /// Stores nothing when the value is the default.
    void WriteProperty(std::string_view key, const PropertyValue& value,
                       const PropertyValue& defaultValue);

    /// Stores the value, also when it is a default.
    void Put(std::string_view key, PropertyValue value);
    [[nodiscard]] bool Holds(std::string_view key) const;
    [[nodiscard]] std::size_t Size() const { return values_.size(); }

private:
    std::map<std::string, PropertyValue> values_;  // keys in lower case
};

}  // namespace corvane
