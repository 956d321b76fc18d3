// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/detached_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>

#include "linux/files/file_descriptor.h"

namespace corvane::linux_desktop {
namespace {

/// What belongs to our own start and would mislead another program about its own.
constexpr std::array<std::string_view, 2> kOfOurStart{"DESKTOP_STARTUP_ID=",
                                                      "XDG_ACTIVATION_TOKEN="};

std::vector<char*> EnvironmentOfPrograms() {
    std::vector<char*> environment;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string_view text = *variable;
        if (std::ranges::none_of(kOfOurStart, [&](auto name) { return text.starts_with(name); }))
            environment.push_back(*variable);
    }
    environment.push_back(nullptr);
    return environment;
}

void ResetSignals() {
    for (int number = 1; number < NSIG; ++number) std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void Fail(int failure) {
    const char failed = 1;
    while (::write(failure, &failed, 1) < 0 && errno == EINTR) {
    }
    ::_exit(1);
}

/// Between fork and exec only the kernel may be called: other threads may have held any lock.
[[noreturn]] void BecomeProgram(char* const* arguments, char* const* environment,
                                const char* folder, int failure) {
    ::setsid();
    // The child of a child belongs to nobody, so nobody has to wait for it.
    if (const pid_t child = ::fork(); child != 0) ::_exit(child > 0 ? 0 : 1);
    ResetSignals();
    if (::chdir(folder) != 0 && ::chdir("/") != 0) Fail(failure);
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (int number = 0; number <= 2; ++number) ::dup2(nothing, number);
    ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execve(arguments[0], arguments, environment);
    Fail(failure);
}

}  // namespace

bool StartDetached(const std::vector<std::string>& invocation, const std::string& folder) {
    std::vector<char*> arguments;
    arguments.reserve(invocation.size() + 1);
    for (const std::string& argument : invocation)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const std::vector<char*> environment = EnvironmentOfPrograms();

    // The program's start closes the writing end; one byte says that it did not start.
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);

    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0)
        BecomeProgram(arguments.data(), environment.data(), folder.c_str(), writer.number());
    writer = FileDescriptor();

    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return false;
    char failed = 0;
    ssize_t count = 0;
    while ((count = ::read(reader.number(), &failed, 1)) < 0 && errno == EINTR) {
    }
    return count == 0;
}

}  // namespace corvane::linux_desktop
