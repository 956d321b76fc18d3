// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/keyword_store.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "runtime/text.h"

namespace corvane {
namespace {

enum class LineKind { Keyword, Path };

/// The whole of what tells a path from a keyword. That a keyword with ".exe" in it is taken for a
/// path, and a path in ".EXE" for a keyword, is deliberate.
LineKind KindOf(const std::string& line) {
    return InStr(1, line, ".exe") != 0 ? LineKind::Path : LineKind::Keyword;
}

KeywordList LoadLines(IFileSystemObject& files, const std::string& path, LineKind kept) {
    const auto stream = files.OpenTextFile(path, ForReading, false);
    std::vector<std::string> lines;
    while (!stream->AtEndOfStream()) {
        std::string line = stream->ReadLine();
        if (KindOf(line) == kept) lines.push_back(std::move(line));
    }
    stream->Close();
    return KeywordList(std::move(lines));
}

}  // namespace

KeywordList::KeywordList(std::vector<std::string> lines) : elements_(std::move(lines)) {
    elements_.resize(std::max<std::size_t>(elements_.size() + 1, 2));
}

Long KeywordList::UpperBound() const {
    return static_cast<std::int64_t>(elements_.size()) - 1;
}

const std::string& KeywordList::operator()(Long index) const {
    if (index < 0 || index > UpperBound())
        throw RuntimeError(kSubscriptOutOfRange, "Subscript out of range");
    return elements_[static_cast<std::size_t>(index.rep())];
}

KeywordStore::KeywordStore(IFileSystemObject& files, const DataPaths& paths)
    : files_(files), paths_(paths) {}

KeywordList KeywordStore::LoadKeywordNames() const {
    return LoadLines(files_, paths_.KeywordsTxtPath, LineKind::Keyword);
}

KeywordList KeywordStore::LoadKeywordPaths() const {
    return LoadLines(files_, paths_.KeywordsTxtPath, LineKind::Path);
}

void KeywordStore::Reload() {
    KeywordNames = LoadKeywordNames();
    KeywordPaths = LoadKeywordPaths();
}

void KeywordStore::CreateKeywordsTXT() {
    files_.CreateTextFile(paths_.KeywordsTxtPath, true)->Close();
}

void KeywordStore::SaveKeywordsTXT(const std::vector<KeywordRow>& rows) {
    const auto stream = files_.CreateTextFile(paths_.KeywordsTxtPath, true);
    for (const KeywordRow& row : rows) {
        stream->WriteLine(row.text);
        for (const std::string& sub_item : row.sub_items)
            if (!sub_item.empty()) stream->WriteLine(sub_item);
    }
    stream->Close();
    Reload();
}

void KeywordStore::RemoveKeywordLines(const std::string& keyword, const std::string& path) {
    const auto source = files_.OpenTextFile(paths_.KeywordsTxtPath, ForReading, false);
    std::vector<std::string> kept;
    while (!source->AtEndOfStream()) {
        std::string line = source->ReadLine();
        if (line != keyword && line != path) kept.push_back(std::move(line));
    }
    source->Close();

    const auto stream = files_.CreateTextFile(paths_.KeywordsTxtPath, true);
    for (const std::string& line : kept)
        if (!line.empty()) stream->WriteLine(line);
    stream->Close();
    Reload();
}

}  // namespace corvane
