// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/executable_folder.h"

#include <sys/auxv.h>

#include <system_error>

#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

/// The kernel's record of the name, which a caller can't choose as it can the first argument.
fs::path NameStartedAs() {
    const auto* name = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
    return name != nullptr ? name : "";
}

}  // namespace

fs::path ExecutableFolder(const fs::path& started_as, const fs::path& self) {
    std::error_code error;
    if (!started_as.empty() && fs::equivalent(started_as, self, error)) {
        const fs::path folder = fs::canonical(fs::absolute(started_as).parent_path(), error);
        if (!error) return folder;
    }
    const fs::path file = fs::read_symlink(self, error);
    if (error) throw RuntimeError(kPathNotFound, "Path not found: " + self.string());
    return file.parent_path();
}

std::string ExecutableFolderOfThisProcess() {
    return ExecutableFolder(NameStartedAs(), "/proc/self/exe").string();
}

}  // namespace corvane::linux_desktop
