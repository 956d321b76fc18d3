// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/print_server.h"

#include <signal.h>
#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <regex>
#include <stdexcept>
#include <thread>

namespace corvane::testing {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// One folder a process: the printing library reads the server's name only once.
fs::path FolderOfProcess() {
    return fs::temp_directory_path() / ("corvane-prints-" + std::to_string(::getpid()));
}

bool Answers(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int failed =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::close(socket);
    return failed == 0;
}

void WaitUntil(const std::function<bool()>& condition) {
    for (int tries = 0; !condition(); ++tries) {
        if (tries == 3000) throw std::runtime_error("tools/print-server does not answer");
        std::this_thread::sleep_for(10ms);
    }
}

std::string OutputOf(const std::string& command) {
    struct Close {
        void operator()(FILE* pipe) const { ::pclose(pipe); }
    };
    const std::unique_ptr<FILE, Close> pipe(::popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 4096> part{};
    while (const auto size = ::fread(part.data(), 1, part.size(), pipe.get()))
        output.append(part.data(), size);
    return output;
}

}  // namespace

void HideOtherPrinters() {
    const fs::path folder = FolderOfProcess();
    ::setenv("CUPS_SERVER", (folder / "socket").c_str(), 1);
    ::setenv("HOME", folder.c_str(), 1);
    for (const char* name : {"PRINTER", "LPDEST"}) ::unsetenv(name);
}

PrintServer::PrintServer(Printers printers) : folder_(FolderOfProcess()) {
    std::string program = CORVANE_PROJECT_FOLDER "/tools/print-server";
    std::string folder = folder_;
    std::string option = "--no-printer";
    const std::array<char*, 4> arguments{program.data(), folder.data(),
                                         printers == Printers::None ? option.data() : nullptr,
                                         nullptr};
    if (::posix_spawn(&process_, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
        throw std::runtime_error("tools/print-server can't be started");
    WaitUntil([this] { return Answers(folder_ / "socket"); });
}

PrintServer::~PrintServer() {
    ::kill(process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
    fs::remove_all(folder_);
}

std::vector<std::string> PrintServer::Jobs() const {
    std::vector<std::string> jobs;
    for (const auto& entry : fs::directory_iterator(folder_ / "jobs"))
        if (entry.path().filename().string().starts_with("d")) jobs.push_back(entry.path());
    std::ranges::sort(jobs);
    return jobs;
}

std::optional<std::string> PrintServer::Option(const std::string& name) const {
    const fs::path path = folder_ / "jobs" / "c00001";
    WaitUntil([&] { return fs::exists(path); });
    std::ifstream file(path, std::ios::binary);
    const std::string record(std::istreambuf_iterator<char>(file), {});
    // Names and values stand behind their lengths, which have two bytes each.
    const auto length = [&](std::size_t at) {
        return static_cast<unsigned char>(record.at(at)) * 256U +
               static_cast<unsigned char>(record.at(at + 1));
    };
    for (std::size_t at = record.find(name); at != std::string::npos;
         at = record.find(name, at + 1))
        if (length(at - 2) == name.size())
            return record.substr(at + name.size() + 2, length(at + name.size()));
    return std::nullopt;
}

std::vector<std::string> PagesOf(const std::string& file) {
    const std::string text = OutputOf("pdftotext '" + file + "' -");
    std::vector<std::string> pages;
    for (std::size_t at = 0, end = 0; (end = text.find('\f', at)) != std::string::npos;
         at = end + 1)
        pages.push_back(text.substr(at, end - at));
    return pages;
}

Printed PlaceOnPage(const std::string& file, int page) {
    const std::string number = std::to_string(page);
    const std::string boxes =
        OutputOf("pdftotext -bbox -f " + number + " -l " + number + " '" + file + "' -");
    std::smatch paper;
    std::regex_search(boxes, paper, std::regex("<page width=\"([0-9.]+)\" height=\"([0-9.]+)\""));
    Printed place{.left = 1e9,
                  .top = 1e9,
                  .paper_width = std::stod(paper[1]),
                  .paper_height = std::stod(paper[2])};
    const std::regex word(
        "<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" yMax=\"([0-9.]+)\"");
    for (std::sregex_iterator box(boxes.begin(), boxes.end(), word), end; box != end; ++box) {
        place.left = std::min(place.left, std::stod((*box)[1]));
        place.top = std::min(place.top, std::stod((*box)[2]));
        place.right = std::max(place.right, std::stod((*box)[3]));
        place.bottom = std::max(place.bottom, std::stod((*box)[4]));
    }
    return place;
}

}  // namespace corvane::testing
