// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace corvane {

class IFileSystemObject;
class ILanguageRuntime;
class IMessageQueue;
class ISpeechApi;
class IWindowToolkit;

/// The world, as one backend offers it. The backend owns all of it and outlives the system.
struct Platform {
    ILanguageRuntime& runtime;
    IMessageQueue& messages;
    IFileSystemObject& files;
    IWindowToolkit& windows;
    ISpeechApi& speech;
};

}  // namespace corvane
