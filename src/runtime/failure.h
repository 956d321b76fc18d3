// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "platform/error.h"

namespace corvane {

/// The regime in which a failing statement is skipped in silence and the next one runs. It is
/// declared in the first line of a handler; each of its statements is one call, so an error
/// abandons exactly that statement, and an assignment that fails keeps the old value.
class ResumeNext {
public:
    template <class Statement>
    void operator()(Statement&& statement) const {
        try {
            std::forward<Statement>(statement)();
        } catch (const RuntimeError&) {
            // Skipped: that is what the regime promises.
        }
    }

    /// The test of a condition. A test that itself fails counts as passed, so that the statements
    /// which it guards run.
    template <class Test>
    [[nodiscard]] bool test(Test&& test) const {
        try {
            return std::forward<Test>(test)();
        } catch (const RuntimeError&) {
            return true;
        }
    }
};

/// The regime in which an error abandons the body and jumps to a handler; nothing runs again.
template <class Body, class Handler>
void on_error(Body&& body, Handler&& handler) {
    try {
        body();
    } catch (const RuntimeError& error) {
        handler(error);
    }
}

/// The regime in which an error jumps to a handler behind which the failing statement runs again.
/// It ends only when the statement succeeds, or when the handler raises or ends the process.
template <class Statement, class Handler>
void retry(Statement&& statement, Handler&& handler) {
    for (;;) {
        try {
            return statement();
        } catch (const RuntimeError& error) {
            handler(error);
        }
    }
}

}  // namespace corvane
