// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// A reference to an object that may not exist yet, or no longer. Its use while it is empty raises
/// kObjectNotSet.
template <class Object>
class Nullable {
public:
    Nullable() = default;
    Nullable(std::shared_ptr<Object> object) : object_(std::move(object)) {}  // NOLINT

    [[nodiscard]] Object* operator->() const { return shared().get(); }
    [[nodiscard]] bool empty() const { return object_ == nullptr; }

    /// The object itself, for whoever has to keep it alive.
    [[nodiscard]] const std::shared_ptr<Object>& shared() const {
        if (!object_)
            throw RuntimeError(kObjectNotSet, "Object variable or With block variable not set");
        return object_;
    }

private:
    std::shared_ptr<Object> object_;
};

}  // namespace corvane
