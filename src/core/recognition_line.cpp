// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_line.h"

#include "runtime/text.h"

namespace corvane {

std::string RecognitionLine(Long StreamNumber, const Variant& StreamPosition,
                            const ISpeechRecoResult& Result, std::string_view suffix) {
    std::string line = CStr(StreamNumber) + ", " + CStr(StreamPosition) + ", Recognition, ";
    // The second blank behind the comma is deliberate.
    line += " [Text=" + Result.PhraseInfo()->GetText(0, -1, true) + "]";
    line += " [Confidence=" + CStr(Long(Result.PhraseInfo()->Rule()->Confidence())) + "]";
    line += suffix;
    line += kCrLf;
    return line;
}

}  // namespace corvane
