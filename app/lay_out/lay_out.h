// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane {

/// What stands in the way of laying files out, in words for the person who starts the program.
class LayOutFailed : public std::runtime_error {
public:
    LayOutFailed(const std::filesystem::path& file, const std::string& reason)
        : std::runtime_error(file.string() + ": " + reason) {}
};

using DataFiles = std::vector<std::filesystem::path>;  ///< relative to the folder they lie in

/// All files under a folder, in order of their names. Throws LayOutFailed if it can't be read.
[[nodiscard]] DataFiles FilesUnder(const std::filesystem::path& folder);

/// Lays the files of the folder `from` out at the same places under `to`, which is made if need be.
/// What a person teaches the program is in the keyword files, so those stay as they are once they
/// are there, be it as a link to where they can't be reached at present; the others become what
/// they are in `from`. Whoever calls owns the copies and may write them, whatever holds for the
/// originals. Each file changes whole or not at all, a loss of power included. Throws LayOutFailed
/// at the first that fails.
void LayOut(const DataFiles& files, const std::filesystem::path& from,
            const std::filesystem::path& to);

/// Whether each of the files is there, of whatever age. A keyword file is there as a link to
/// nothing, too.
[[nodiscard]] bool AreLaidOut(const DataFiles& files, const std::filesystem::path& folder);

/// Makes `link` a symbolic link to `target`, in place of the file or link that it was. Throws
/// LayOutFailed.
void LayLink(const std::filesystem::path& target, const std::filesystem::path& link);

/// What all people share.
struct Installation {
    std::filesystem::path data;        ///< the folder of the data files as they are delivered
    std::filesystem::path executable;  ///< absolute
};

/// Lays files out as LayOut does, and beside them "corvane" as a link to the executable. A file
/// that fails does not keep the link from leading to the executable that there is now: the one
/// before may have been removed. Throws LayOutFailed of the first that fails.
void LayOutProgram(const DataFiles& files, const Installation& installed,
                   const std::filesystem::path& to);

}  // namespace corvane
