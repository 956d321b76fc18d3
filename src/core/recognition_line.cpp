// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_line.h"

#include "runtime/text.h"

namespace corvane {

std::string ResultLine(Long StreamNumber, const Variant& StreamPosition, std::string_view kind,
                       const ISpeechRecoResult& Result, std::string_view suffix) {
    std::string line = CStr(StreamNumber) + ", " + CStr(StreamPosition) + ", ";
    // The second blank behind the comma is deliberate.
    line.append(kind).append(", ").append(" [Text=");
    line += Result.PhraseInfo()->GetText(0, -1, true) + "]";
    line += " [Confidence=" + CStr(Long(Result.PhraseInfo()->Rule()->Confidence())) + "]";
    return line.append(suffix).append(kCrLf);
}

}  // namespace corvane
