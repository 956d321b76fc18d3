// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The automation objects that the system creates: files read and written line by line, and a
/// browser.
namespace corvane {

enum IOMode : std::int32_t { ForReading = 1 };

/// An open text file. Bytes are passed on as they stand. It is closed at the latest when released.
class ITextStream {
public:
    virtual ~ITextStream() = default;

    [[nodiscard]] virtual bool AtEndOfStream() const = 0;

    /// The next line without its line end: CR LF, or a lone LF. Behind the last line raises
    /// kInputPastEnd.
    virtual std::string ReadLine() = 0;

    /// Writes the line and CR LF. Raises kDiskFull, or kDeviceIOError when it can't be stored; what
    /// was written before stays.
    virtual void WriteLine(const std::string& line) = 0;

    /// Lets go of the file. May raise as WriteLine does, since a write may only fail here.
    virtual void Close() = 0;
};

/// A drive that exists, with a disc in it or without.
struct DriveObject {
    std::string driveletter;  ///< one capital
};

class IFileSystemObject {
public:
    virtual ~IFileSystemObject() = default;

    /// Opens an existing file; with `create` a missing one is made first. Otherwise a missing file
    /// raises kFileNotFound, a missing folder kPathNotFound, one that may not be read
    /// kPermissionDenied.
    [[nodiscard]] virtual std::unique_ptr<ITextStream> OpenTextFile(const std::string& path,
                                                                    IOMode mode, bool create) = 0;

    /// Creates a file, or with `overwrite` empties the one that is there, in place. Raises
    /// kPathNotFound or kPermissionDenied, and without `overwrite` kFileAlreadyExists.
    [[nodiscard]] virtual std::unique_ptr<ITextStream> CreateTextFile(const std::string& path,
                                                                      bool overwrite) = 0;

    /// Length of a file in bytes; raises kFileNotFound when there is none.
    [[nodiscard]] virtual std::int64_t FileLen(const std::string& path) = 0;

    /// Removes a file; raises kFileNotFound when there is none, kPermissionDenied when it may not.
    virtual void DeleteFile(const std::string& path) = 0;

    /// The drives that exist, in the order of their letters; those of IKernel32.
    [[nodiscard]] virtual std::vector<DriveObject> Drives() = 0;
};

struct InternetExplorerEvents {
    std::function<void()> OnQuit;  ///< the person has closed the browser
};

/// A browser window. Where the desktop's own browser takes its place, OnQuit may never come.
class IInternetExplorer {
public:
    virtual ~IInternetExplorer() = default;
    virtual void SetVisible(bool visible) = 0;
    /// Opens a page, given by address or by the path of its file. A missing page is the browser's
    /// to tell; raises kAutomationError when there is no browser.
    virtual void Navigate2(const std::string& url) = 0;
};

class IAutomation {
public:
    virtual ~IAutomation() = default;
    [[nodiscard]] virtual std::shared_ptr<IInternetExplorer> CreateInternetExplorer(
        InternetExplorerEvents events) = 0;
};

}  // namespace corvane
