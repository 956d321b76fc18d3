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
    SREAudioLevel = 65536,
};

/// Event bits of a voice.
enum SpeechVoiceEvents : std::int32_t { SVEAudioLevel = 512 };

class ISpeechPhraseRule {
public:
    virtual ~ISpeechPhraseRule() = default;
    /// Name of the grammar rule that matched, in the grammar's own spelling.
    [[nodiscard]] virtual std::string Name() const = 0;
    /// How sure the engine is: a SpeechEngineConfidence.
    [[nodiscard]] virtual std::int32_t Confidence() const = 0;
};

class ISpeechPhraseInfo {
public:
    virtual ~ISpeechPhraseInfo() = default;
    /// The phrase as display text, in the grammar's own spelling, words parted by one blank.
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
    /// of that Id, which on a grammar without rules is every Id.
    virtual void CmdSetRuleIdState(std::int32_t RuleId, std::int32_t State) = 0;
};

/// Where a context's events go. An empty function takes no events.
struct SpeechRecoContextEvents {
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::int32_t RecognitionType, std::shared_ptr<ISpeechRecoResult> Result)>
        Recognition;
    std::function<void(std::int32_t StreamNumber, const Variant& StreamPosition,
                       std::shared_ptr<ISpeechRecoResult> Result)>
        Hypothesis;
};

/// A listener on the shared recogniser, released with its last reference.
class ISpeechRecoContext {
public:
    virtual ~ISpeechRecoContext() = default;
    [[nodiscard]] virtual std::shared_ptr<ISpeechRecoGrammar> CreateGrammar(
        std::int32_t GrammarId) = 0;
    /// Sum of SpeechRecoEvents; events whose bit is missing are not raised.
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;
    virtual void SetEventInterests(std::int32_t Mask) = 0;
    /// Connects the handlers, in place of any earlier ones. From a call with `{}` on nothing more
    /// arrives, not even what was queued already: an event looks its handler up when it is
    /// dispatched, not when it is posted.
    virtual void Advise(SpeechRecoContextEvents Events) = 0;
};

class ISpeechVoice {
public:
    virtual ~ISpeechVoice() = default;
    /// Sum of SpeechVoiceEvents.
    [[nodiscard]] virtual std::int32_t EventInterests() const = 0;
    virtual void SetEventInterests(std::int32_t Mask) = 0;
};

/// The engine's objects that can be created. Creation raises when no engine is installed.
class ISpeechApi {
public:
    virtual ~ISpeechApi() = default;
    [[nodiscard]] virtual std::shared_ptr<ISpeechRecoContext> CreateSpSharedRecoContext() = 0;
};

}  // namespace corvane
