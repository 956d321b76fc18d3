// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/data_paths.h"

#include "runtime/text.h"

namespace corvane {

void init_constants(const ILanguageRuntime& runtime, DataPaths& paths) {
    const std::string separator(1, runtime.PathSeparator());
    std::string folder = runtime.ExecutableFolder();
    // A root already ends in a separator; one is enough.
    if (LastCharacter(folder) != separator) folder += separator;
    paths.KeywordsTxtPath = folder + "keywords.txt";
    paths.KeywordsXmlPath = folder + "keywords.xml";
    paths.QuietXmlPath = folder + "quiet.xml";
    paths.CalendarXmlPath = folder + "calendar.xml";
}

}  // namespace corvane
