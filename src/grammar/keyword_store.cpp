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

}  // namespace corvane
