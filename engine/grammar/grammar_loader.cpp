// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/grammar_loader.h"

#include <expat.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <sstream>
#include <unordered_set>
#include <utility>

#include "engine/grammar/word_graph.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr int kUsEnglish = 0x409;
constexpr std::string_view kBlanks = " \t\r\n";

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

Phrase WordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

std::optional<std::int32_t> WholeNumber(std::string_view text, int base) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Follows the parser through the file; the first thing wrong stops it.
class GrammarReader {
public:
    Grammar Read(std::string_view xml) {
        if (xml.size() > GrammarLimits::kBytes)
            Refuse("too large");
        else if (XML_Parse(parser_.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) !=
                     XML_STATUS_OK &&
                 reason_.empty())
            reason_ = XML_ErrorString(XML_GetErrorCode(parser_.get()));
        if (reason_.empty()) Weigh();
        if (!reason_.empty())
            throw RuntimeError(kAutomationError,
                               "The grammar is refused at line " +
                                   std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ": " +
                                   reason_);
        return std::move(grammar_);
    }

    GrammarReader() {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(),
            [](void* self, const XML_Char* name, const XML_Char** attributes) {
                static_cast<GrammarReader*>(self)->Open(name, attributes);
            },
            [](void* self, const XML_Char*) { static_cast<GrammarReader*>(self)->Close(); });
        XML_SetCharacterDataHandler(
            parser_.get(), [](void* self, const XML_Char* text, int length) {
                static_cast<GrammarReader*>(self)->Text({text, static_cast<std::size_t>(length)});
            });
        XML_SetProcessingInstructionHandler(
            parser_.get(), [](void* self, const XML_Char*, const XML_Char*) {
                static_cast<GrammarReader*>(self)->Refuse("a processing instruction");
            });
        // Without a document type there are no entities of the file's own to expand.
        XML_SetStartDoctypeDeclHandler(
            parser_.get(), [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
                static_cast<GrammarReader*>(self)->Refuse("a document type");
            });
    }

private:
    enum class Place { file, grammar, rule, element, list, member };

    void Refuse(std::string reason) {
        if (!reason_.empty()) return;
        reason_ = std::move(reason);
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    // What few lines can hold, a graph may not.
    void Weigh() {
        const GraphSize size = SizeOfGraph(grammar_);
        if (size.states > GrammarLimits::kStates || size.arcs > GrammarLimits::kArcs)
            reason_ = "too many ways to speak";
    }

    void Open(std::string_view name, const XML_Char** attributes) {
        if (!reason_.empty()) return;
        switch (place_) {
            case Place::file:
                if (name == "GRAMMAR") return OpenGrammar(attributes);
                break;
            case Place::grammar:
                if (name == "RULE") return OpenRule(attributes);
                break;
            case Place::rule:
                if (name == "P" || name == "O") return OpenElement(name == "O", attributes);
                break;
            case Place::element:
                if (name == "L") return OpenList(attributes);
                break;
            case Place::list:
                if (name == "P") return OpenMember(attributes);
                break;
            case Place::member:
                break;
        }
        Refuse("an element " + std::string(name) + " that may not stand here");
    }

    void OpenGrammar(const XML_Char** attributes) {
        bool language_given = false;
        for (; *attributes != nullptr; attributes += 2) {
            if (std::string_view(attributes[0]) != "LANGID")
                return Refuse("an attribute GRAMMAR has not");
            if (WholeNumber(attributes[1], 16) != kUsEnglish)
                return Refuse("a language that is not spoken here");
            language_given = true;
        }
        if (!language_given) return Refuse("GRAMMAR without a language");
        place_ = Place::grammar;
    }

    void OpenRule(const XML_Char** attributes) {
        GrammarRule rule;
        bool top_level_given = false;
        for (; *attributes != nullptr; attributes += 2) {
            const std::string_view name = attributes[0];
            const std::string_view value = attributes[1];
            if (name == "NAME") {
                rule.name = value;
            } else if (name == "TOPLEVEL" && (value == "ACTIVE" || value == "INACTIVE")) {
                rule.marked_active = value == "ACTIVE";
                top_level_given = true;
            } else if (name == "ID") {
                rule.id = WholeNumber(value, 10).value_or(0);
                if (rule.id <= 0) return Refuse("an ID that is no positive number");
            } else {
                return Refuse("an attribute RULE has not, or not with this value");
            }
        }
        if (IsBlank(rule.name)) return Refuse("a rule without a name");
        if (!top_level_given) return Refuse("a rule that is not top level");
        if (!names_.insert(rule.name).second) return Refuse("a second rule " + rule.name);
        if (rule.id != 0 && !ids_.insert(rule.id).second) return Refuse("a second rule of one ID");
        if (names_.size() > GrammarLimits::kRules) return Refuse("too many rules");
        grammar_.rules.push_back(std::move(rule));
        place_ = Place::rule;
    }

    void OpenElement(bool optional, const XML_Char** attributes) {
        if (*attributes != nullptr) return Refuse("an attribute on a phrase");
        if (grammar_.rules.back().elements.size() == GrammarLimits::kElements)
            return Refuse("too many phrases in a rule");
        grammar_.rules.back().elements.push_back({.optional = optional, .choices = {}});
        text_.clear();
        list_closed_ = false;
        place_ = Place::element;
    }

    void OpenList(const XML_Char** attributes) {
        if (*attributes != nullptr) return Refuse("an attribute on a list");
        if (!IsBlank(text_)) return Refuse("words beside a list");
        if (list_closed_) return Refuse("a second list in one phrase");
        place_ = Place::list;
    }

    void OpenMember(const XML_Char** attributes) {
        if (*attributes != nullptr) return Refuse("an attribute on a phrase");
        text_.clear();
        place_ = Place::member;
    }

    void Text(std::string_view text) {
        if (!reason_.empty()) return;
        if (place_ == Place::element || place_ == Place::member)
            text_ += text;
        else if (!IsBlank(text))
            Refuse("words outside a phrase");
    }

    void Close() {
        if (!reason_.empty()) return;
        switch (place_) {
            case Place::member:
                AddPhrase();
                place_ = Place::list;
                text_.clear();
                break;
            case Place::list:
                if (Element().choices.empty()) return Refuse("an empty list");
                list_closed_ = true;
                place_ = Place::element;
                break;
            case Place::element:
                if (!list_closed_)
                    AddPhrase();
                else if (!IsBlank(text_))
                    return Refuse("words beside a list");
                place_ = Place::rule;
                break;
            case Place::rule:
                if (grammar_.rules.back().elements.empty()) return Refuse("an empty rule");
                place_ = Place::grammar;
                break;
            case Place::grammar:
                if (grammar_.rules.empty()) return Refuse("no rules");
                place_ = Place::file;
                break;
            case Place::file:
                break;
        }
    }

    void AddPhrase() {
        Phrase words = WordsOf(text_);
        if (words.empty()) return Refuse("an empty phrase");
        if (words.size() <= kLongestPhrase) words_ += words.size();
        if (words_ > GrammarLimits::kWords) return Refuse("too many words");
        Element().choices.push_back(std::move(words));
    }

    GrammarElement& Element() { return grammar_.rules.back().elements.back(); }

    struct FreeParser {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_{XML_ParserCreate(nullptr)};
    Place place_ = Place::file;
    bool list_closed_ = false;
    std::string text_;
    std::string reason_;
    std::unordered_set<std::string> names_;
    std::unordered_set<std::int32_t> ids_;
    std::size_t words_ = 0;  ///< of phrases that can be said
    Grammar grammar_;
};

class OpenFile {
public:
    // Not blocking: to open a pipe would wait for somebody who writes.
    explicit OpenFile(const std::string& path)
        : file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~OpenFile() {
        if (file_ >= 0) close(file_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] bool IsOpen() const { return file_ >= 0; }

    [[nodiscard]] bool IsRegular() const {
        struct stat status {};
        return fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
    }

    /// How many bytes came, 0 at the end, less than 0 on failure.
    [[nodiscard]] ssize_t Read(std::span<char> block) const {
        ssize_t count = 0;
        do count = read(file_, block.data(), block.size());
        while (count < 0 && errno == EINTR);
        return count;
    }

private:
    int file_;
};

/// The file, or one byte more of it than a grammar may have.
std::string ReadGrammarFile(const std::string& path) {
    const OpenFile file(path);
    const bool denied = !file.IsOpen() && errno != ENOENT && errno != ENOTDIR;
    if (denied) throw RuntimeError(kDeviceIOError, "The grammar file can't be opened: " + path);
    if (!file.IsOpen() || !file.IsRegular())
        throw RuntimeError(kFileNotFound, "There is no grammar file " + path);
    std::string content;
    std::array<char, 1 << 16> block{};
    while (content.size() <= GrammarLimits::kBytes) {
        const ssize_t count = file.Read(block);
        if (count < 0)
            throw RuntimeError(kDeviceIOError, "The grammar file can't be read: " + path);
        if (count == 0) break;
        content.append(block.data(), static_cast<std::size_t>(count));
    }
    return content;
}

}  // namespace

Grammar ParseGrammar(std::string_view xml) {
    return GrammarReader().Read(xml);
}

Grammar LoadGrammar(const std::string& path) {
    return ParseGrammar(ReadGrammarFile(path));
}

}  // namespace corvane::engine
