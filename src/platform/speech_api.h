// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>

/// What the system asks of a speech engine, under the speech API's own names and values.
///
/// All calls are made on the message loop's thread, and every event arrives on it as a message of
/// its own. A call that the engine refuses raises RuntimeError. Text is UTF-8.
namespace corvane {

/// A place in the audio stream, counted in bytes of 16 kHz, 16-bit, one-channel sound;
/// std::monostate where the engine knows none.
using Variant = std::variant<std::monostate, std::int64_t>;

enum SpeechEngineConfidence : std::int32_t {
    SECLowConfidence = -1,
    SECNormalConfidence = 0,
    SECHighConfidence = 1,
};

enum SpeechLoadOption : std::int32_t { SLOStatic = 0, SLODynamic = 1 };

enum SpeechRuleState : std::int32_t { SGDSInactive = 0, SGDSActive = 1 };

enum SpeechDiscardType : std::int32_t { SDTAll = 255 };

enum SpeechRecognitionType : std::int32_t { SRTStandard = 0 };

/// Event bits of a recognition context.
enum SpeechRecoEvents : std::int32_t {
    SRERecognition = 16,
    SREHypothesis = 32,
    SREInterference = 1024,
    SREAdaptation = 8192,
    SREAudioLevel = 65536,
};

/// Event bits of a voice.
enum SpeechVoiceEvents : std::int32_t {
    SVEEndInputStream = 4,
    SVEBookmark = 16,
    SVEWordBoundary = 32,
    SVEAudioLevel = 512,
};

enum SpeechVoiceSpeakFlags : std::int32_t {
    SVSFlagsAsync = 1,
    SVSFPurgeBeforeSpeak = 2,
    SVSFIsXML = 8,
};

/// Why the engine has trouble hearing.
enum SpeechInterference : std::int32_t {
    SINone = 0,
    SINoise = 1,
    SINoSignal = 2,
    SITooLoud = 3,
    SITooQuiet = 4,
    SITooFast = 5,
    SITooSlow = 6,
};

class ISpeechPhraseRule {
public:
    virtual ~ISpeechPhraseRule() = default;
    /// Name of the grammar rule that matched, in the grammar's own spelling; empty for dictated
    /// text.
    [[nodiscard]] virtual std::string Name() const = 0;
    /// How sure the engine is: a SpeechEngineConfidence.
    [[nodiscard]] virtual std::int32_t Confidence() const = 0;
};

class ISpeechPhraseInfo {
public:
    virtual ~ISpeechPhraseInfo() = default;
    /// The phrase as display text, in the grammar's own spelling, words parted by one blank;
    /// dictated text as it is read: signs at their words, capitals where a sentence begins.
    /// StartElement counts words from 0; Elements -1 means all that follow.
    [[nodiscard]] virtual std::string GetText(std::int32_t StartElement, std::int32_t Elements,
                                              bool UseReplacements) const = 0;
    [[nodiscard]] virtual std::shared_ptr<ISpeechPhraseRule> Rule() const = 0;
};

/// One recognition. It belongs to whoever holds it and outlives its context.
class ISpeechRecoResult {
public:
    virtual ~ISpeechRecoResult() = default;
    [[nodiscard]] virtual std::shared_ptr<ISpeechPhraseInfo> PhraseInfo() const = 0;
    /// Drops what the engine keeps for this result; text, rule and confidence stay readable.
    virtual void DiscardResultInfo(std::int32_t ValueTypes) = 0;
};

class ISpeechGrammarRule {
public:
    virtual ~ISpeechGrammarRule() = default;
    /// 0 for a rule without an ID attribute.
    [[nodiscard]] virtual std::int32_t Id() const = 0;
};

class ISpeechGrammarRules {
public:
    virtual ~ISpeechGrammarRules() = default;
    [[nodiscard]] virtual std::int32_t Count() const = 0;
    /// Index counts from 0; out of range raises 9.
    [[nodiscard]] virtual std::shared_ptr<ISpeechGrammarRule> Item(std::int32_t Index) const = 0;
};

class ISpeechRecoGrammar {
public:
    virtual ~ISpeechRecoGrammar() = default;
    /// Compiles and loads the grammar file at `FileName`; no rule is active yet. A file that is
    /// missing, malformed or empty of rules raises and leaves the grammar without any rule.
    virtual void CmdLoadFromFile(const std::string& FileName, std::int32_t LoadOption) = 0;
    /// Rules of the loaded grammar; none before a load.
    [[nodiscard]] virtual std::shared_ptr<ISpeechGrammarRules> Rules() const = 0;
    /// RuleId 0 stands for all top-level rules that are marked ACTIVE. Raises when there is no rule
    /// of that Id, and when rules are to be active where there are none at all; to make none of
    /// none inactive is no error.
    virtual void CmdSetRuleIdState(std::int32_t RuleId, std::int32_t State) = 0;

    /// Loads free dictation, of the topic "", the general one; any other raises. It is not active
    /// yet. Returns at once: what is said while the engine still loads is told when it has loaded.
    /// Raises where there is nothing to dictate with. Loading twice is loading once.
    virtual void DictationLoad(const std::string& TopicName, std::int32_t LoadOption) = 0;
    /// While dictation is active, whatever is said and is no command of an active rule, heard with
    /// high confidence, is recognised as text whose rule has an empty name. A sign is dictated by
    /// its name; a line break is a text of its own, "\r". The phrases "delete", "train that",
    /// "quit dictation", "clear everything", "scratch that" and "print page", said alone, are told
    /// in just these words. Where several grammars dictate, the context that was created last is
    /// told. Raises before a DictationLoad.
    virtual void DictationSetState(std::int32_t State) = 0;
    /// Ends dictation, what is said but not told yet included, and gives back what it took. Raises
    /// when none is loaded.
    virtual void DictationUnload() = 0;
};

/// Where a context's events go. An empty function takes no events.
struct SpeechRecoContextEvents {
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t RecognitionType, std::shared_ptr<ISpeechRecoResult> Result)>
        Recognition;
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::shared_ptr<ISpeechRecoResult> Result)>
        Hypothesis;
    /// AudioLevel of the input: 0 to 100.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t AudioLevel)>
        AudioLevel;
    /// A SpeechInterference; raised once when a condition begins, SINone when the last one has
    /// gone.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t Interference)>
        Interference;
    /// The engine has taken in what it was given to adapt to.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition)> Adaptation;
};

/// The recogniser that contexts share.
class ISpeechRecognizer {
public:
    virtual ~ISpeechRecognizer() = default;
    /// Shows one of the engine's own dialogs, "UserTraining" or "AddRemoveWord", over the window
    /// hWndParent (0: over none) and returns when it is closed. Raises when the engine does not
    /// offer it.
    virtual void DisplayUI(std::uint32_t hWndParent, const std::string& Title,
                           const std::string& TypeOfUI, const std::string& ExtraData) = 0;
};

/// A listener on the shared recogniser, released with its last reference.
class ISpeechRecoContext {
public:
    virtual ~ISpeechRecoContext() = default;
    [[nodiscard]] virtual std::shared_ptr<ISpeechRecoGrammar> CreateGrammar(
        std::int32_t GrammarId) = 0;
    /// The recogniser behind this context; the same for all of them.
    [[nodiscard]] virtual std::shared_ptr<ISpeechRecognizer> Recognizer() const = 0;
    /// Sum of SpeechRecoEvents; events whose bit is missing are not raised.
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;
    virtual void SetEventInterests(std::int32_t Mask) = 0;
    /// Connects the handlers, in place of any earlier ones. From a call with `{}` on nothing more
    /// arrives, not even what was queued already: an event looks its handler up when it is
    /// dispatched, not when it is posted.
    virtual void Advise(SpeechRecoContextEvents Events) = 0;
    /// Gives the engine words, or a text of the kind that is going to be dictated: words that it
    /// does not know get pronunciations, and dictation comes to expect what stands there. Each call
    /// adds to those before and returns at once; the event Adaptation tells this context when it is
    /// done, also for an empty text.
    virtual void SetAdaptationData(const std::string& AdaptationString) = 0;
};

/// Where a voice's events go. An empty function takes no events. Each arrives when what it tells
/// of is heard; StreamPosition counts from the beginning of its stream.
struct SpeechVoiceHandlers {
    /// A word begins. CharacterPosition counts the characters in front of it and Length those of
    /// its own in the text that was given to Speak, markup included, from 0. A word is what stands
    /// between blanks, without the signs around it; positions rise strictly within a stream.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t CharacterPosition, std::int32_t Length)>
        Word;
    /// A stream has been heard to its end; once for each that was not cut off, an empty text's
    /// included. It is the stream's last event.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition)> EndStream;
    /// How loud the output is, 0 to 100: several a second while sound is heard, and 0 when it ends
    /// or is cut off (then under the number of the stream that cut it off).
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t AudioLevel)>
        AudioLevel;
    /// The place of a bookmark of the markup. BookmarkId is the number that its name begins with,
    /// else 0.
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       const std::string& Bookmark, std::int32_t BookmarkId)>
        Bookmark;
};

class ISpeechVoice {
public:
    virtual ~ISpeechVoice() = default;
    /// Sum of SpeechVoiceEvents; an event whose bit is missing when it would arrive is not raised.
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;
    virtual void SetEventInterests(std::int32_t Mask) = 0;
    /// Connects the handlers, in place of any earlier ones. From a call with `{}` on nothing more
    /// arrives: an event looks its handler up when it is dispatched, not when it is posted.
    virtual void Advise(SpeechVoiceHandlers Handlers) = 0;

    /// Speaks a text; Flags is a sum of SpeechVoiceSpeakFlags. With SVSFlagsAsync it returns at
    /// once, with SVSFPurgeBeforeSpeak it cuts off what is being said and what waits to be, with
    /// SVSFIsXML the text may hold markup, and what can't be markup is read as it stands. Returns
    /// the number of the stream, rising from 1. Raises only where nothing can be spoken at all.
    ///
    /// A stream that was cut off raises nothing more, not even its end, nor what was queued of it
    /// before: the handlers of an end would else take it for the end of the stream that follows.
    virtual std::int32_t Speak(const std::string& Text, std::int32_t Flags) = 0;

    /// Waits until all that was given to Speak has been heard, at most `msTimeout` milliseconds; no
    /// message runs meanwhile. Whether it has ended.
    virtual bool WaitUntilDone(std::int32_t msTimeout) = 0;
};

/// The engine's objects that can be created. Creation raises when no engine is installed.
class ISpeechApi {
public:
    virtual ~ISpeechApi() = default;
    [[nodiscard]] virtual std::shared_ptr<ISpeechRecoContext> CreateSpSharedRecoContext() = 0;
    /// A voice on the default audio output.
    [[nodiscard]] virtual std::shared_ptr<ISpeechVoice> CreateSpVoice() = 0;
};

}  // namespace corvane
