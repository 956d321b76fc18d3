// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/language_runtime.h"

namespace corvane {

/// Full paths of the files that lie beside the executable; empty until init_constants.
struct DataPaths {
    std::string KeywordsTxtPath{};
    std::string KeywordsXmlPath{};
    std::string QuietXmlPath{};
    std::string CalendarXmlPath{};
};

void init_constants(const ILanguageRuntime& runtime, DataPaths& paths);

}  // namespace corvane
