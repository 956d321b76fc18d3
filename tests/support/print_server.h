// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

/// A print server of the test's own, tools/print-server, and what came out of its printer. One at a
/// time; it is the one that this process prints with, be it ever started or not.
class PrintServer {
public:
    enum class Printers { One, None };
    /// Returns when it answers; throws if it does not.
    explicit PrintServer(Printers printers = Printers::One);
    ~PrintServer();

    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    /// The files of the jobs so far, in their order.
    [[nodiscard]] std::vector<std::string> Jobs() const;
    /// The bytes of an option with which the only job was sent; nothing if it was not.
    [[nodiscard]] std::optional<std::string> Option(const std::string& name) const;

private:
    std::filesystem::path folder_;
    pid_t process_ = 0;
};

/// Before anything prints: no printer of this machine is to be seen by this process.
void HideOtherPrinters();

/// The text of each page of a PDF file.
[[nodiscard]] std::vector<std::string> PagesOf(const std::string& file);

/// Where the words of a page of a PDF file stand, in points from the paper's top left corner.
struct Printed {
    double left = 0, top = 0, right = 0, bottom = 0;
    double paper_width = 0, paper_height = 0;
};
[[nodiscard]] Printed PlaceOnPage(const std::string& file, int page);

}  // namespace corvane::testing
