// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvane {

/// A failure that a handler may trap: a number that callers can tell apart and a text for people.
/// It is the only exception that this system ever catches.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(std::int32_t number, const std::string& text)
        : std::runtime_error(text), number_(number) {}

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }

private:
    std::int32_t number_;
};

/// Numbers of the failures that more than one place raises.
enum ErrorNumber : std::int32_t {
    kInvalidProcedureCall = 5,
    kOverflow = 6,
    kSubscriptOutOfRange = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kFileNotFound = 53,
    kDeviceIOError = 57,
    kFileAlreadyExists = 58,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kPermissionDenied = 70,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kInvalidPropertyValue = 380,
    kAutomationError = 440,  ///< an engine or another object refused the call
    kInvalidPicture = 481,
    kPrinterError = 482,  ///< no printer, or one that fails
};

}  // namespace corvane
