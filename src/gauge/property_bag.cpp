// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/property_bag.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>

namespace corvane {
namespace {

std::string LowerCase(std::string_view key) {
    std::string lower(key);
    std::ranges::transform(lower, lower.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return lower;
}

[[noreturn]] void Mismatch() {
    throw RuntimeError(kTypeMismatch, "Type mismatch");
}

/// What a value is worth as a number, if it is one.
struct Worth {
    std::optional<double> operator()(Boolean value) const { return value.rep(); }
    std::optional<double> operator()(Integer value) const { return value.rep(); }
    std::optional<double> operator()(Long value) const { return value.rep(); }
    std::optional<double> operator()(Single value) const { return value; }
    std::optional<double> operator()(double value) const { return value; }
    template <class Object>
    std::optional<double> operator()(const Object& /*object*/) const {
        return std::nullopt;
    }
};

bool IsNothing(const PropertyValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return true;
    const auto* picture = std::get_if<Picture>(&value);
    return picture != nullptr && (*picture == nullptr || (*picture)->Handle() == 0);
}

}  // namespace

bool SameValue(const PropertyValue& a, const PropertyValue& b) {
    if (IsNothing(a) || IsNothing(b)) return IsNothing(a) && IsNothing(b);
    const auto worth_of_a = std::visit(Worth(), a);
    const auto worth_of_b = std::visit(Worth(), b);
    if (worth_of_a && worth_of_b) return *worth_of_a == *worth_of_b;
    if (a.index() != b.index()) return false;
    if (const auto* font = std::get_if<StdFont>(&a)) return *font == std::get<StdFont>(b);
    if (const auto* picture = std::get_if<Picture>(&a)) return *picture == std::get<Picture>(b);
    return false;
}

double CDbl(const PropertyValue& value) {
    const auto worth = std::visit(Worth(), value);
    if (!worth) Mismatch();
    return *worth;
}

Boolean CBool(const PropertyValue& value) {
    return CDbl(value) != 0;
}

Integer CInt(const PropertyValue& value) {
    return CLng(value).rep();
}

Long CLng(const PropertyValue& value) {
    return Round(CDbl(value));
}

Single CSng(const PropertyValue& value) {
    return CSng(CDbl(value));
}

StdFont AsFont(const PropertyValue& value) {
    if (const auto* font = std::get_if<StdFont>(&value)) return *font;
    Mismatch();
}

Picture AsPicture(const PropertyValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return nullptr;
    if (const auto* picture = std::get_if<Picture>(&value)) return *picture;
    Mismatch();
}

PropertyValue PropertyBag::ReadProperty(std::string_view key,
                                        const PropertyValue& defaultValue) const {
    const auto stored = values_.find(LowerCase(key));
    return stored == values_.end() ? defaultValue : stored->second;
}

void PropertyBag::WriteProperty(std::string_view key, const PropertyValue& value,
                                const PropertyValue& defaultValue) {
    if (!SameValue(value, defaultValue)) Put(key, value);
}

void PropertyBag::Put(std::string_view key, PropertyValue value) {
    values_[LowerCase(key)] = std::move(value);
}

bool PropertyBag::Holds(std::string_view key) const {
    return values_.contains(LowerCase(key));
}

}  // namespace corvane
