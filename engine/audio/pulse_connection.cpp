// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/audio/pulse_connection.h"

#include <pulse/context.h>
#include <pulse/mainloop.h>

#include <utility>

namespace corvane::engine {

void PulseConnection::Release::operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

PulseConnection::PulseConnection(pa_mainloop* loop, const std::string& client_name,
                                 std::function<void()> ready)
    : ready_(std::move(ready)),
      context_(pa_context_new(pa_mainloop_get_api(loop), client_name.c_str())) {
    if (!context_) return;
    pa_context_set_state_callback(
        context_.get(),
        [](pa_context*, void* self) { static_cast<PulseConnection*>(self)->Changed(); }, this);
    broken_ = pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0;
}

PulseConnection::~PulseConnection() = default;

void PulseConnection::Changed() {
    const pa_context_state_t state = pa_context_get_state(context_.get());
    if (state == PA_CONTEXT_READY)
        ready_();
    else if (!PA_CONTEXT_IS_GOOD(state))
        broken_ = true;
}

}  // namespace corvane::engine
