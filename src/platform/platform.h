// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace corvane {

class IAdvapi32;
class IAutomation;
class IClipboard;
class IFileSystemObject;
class IGdi32;
class IKernel32;
class ILanguageRuntime;
class IMessageQueue;
class IPrinter;
class IProcessTokens;
class IShell32;
class ISpeechApi;
class IUser32;
class IWinInet;
class IWinMm;
class IWindowToolkit;

/// The world, as one backend offers it. The backend owns all of it and outlives the system.
struct Platform {
    ILanguageRuntime& runtime;
    IMessageQueue& messages;
    IFileSystemObject& files;
    IWindowToolkit& windows;
    ISpeechApi& speech;
    IAutomation& automation;
    IAdvapi32& advapi32;
    IShell32& shell32;
    IUser32& user32;
    IClipboard& clipboard;
    IGdi32& gdi32;
    IKernel32& kernel32;
    IWinInet& wininet;
    IProcessTokens& tokens;
    IWinMm& winmm;
    IPrinter& printer;
};

}  // namespace corvane
