// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/application.h"

#include <utility>

#include "platform/automation.h"
#include "platform/controls.h"
#include "platform/language_runtime.h"
#include "platform/speech_api.h"

namespace corvane {

Application::Application(const Platform& platform)
    : platform_(platform),
      loop_(platform.messages, platform.runtime),
      keywords_(platform.files, paths_),
      recogniser_(platform.speech, voice_),
      form2_([this] { return CreateForm2(); }),
      log_(form2_),
      launcher_(keywords_, platform.runtime),
      dispatch_(platform.runtime, paths_, recogniser_, voice_, launcher_, form2_, log_) {
    recogniser_.Events.Recognition =
        [this](std::int32_t StreamNumber, const Variant& StreamPosition,
               std::int32_t RecognitionType, const std::shared_ptr<ISpeechRecoResult>& Result) {
            dispatch_.RC_Recognition(StreamNumber, StreamPosition, RecognitionType, *Result);
        };
}

void Application::Run() {
    loop_.Enter([this] { form2_->Show(); });
    loop_.Run();
}

std::shared_ptr<Form2> Application::CreateForm2() {
    auto form = std::make_shared<Form2>(platform_.windows, loop_);
    form->Load = [this] { Form2_Load(); };
    form->Unload = [this] { platform_.runtime.End(); };
    form->mnuExit.Click = [this] { platform_.runtime.End(); };
    return form;
}

void Application::Form2_Load() {
    init_constants(platform_.runtime, paths_);
    recogniser_.HypothesisTrace = false;
    recogniser_.DictationActive = false;
    recogniser_.init_rec(paths_.KeywordsXmlPath);
    keywords_.Reload();
}

}  // namespace corvane
