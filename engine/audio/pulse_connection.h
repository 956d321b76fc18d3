// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

struct pa_context;
struct pa_mainloop;

namespace corvane::engine {

/// A connection to the user's PulseAudio server, from the attempt to its end. All happens on the
/// loop's thread; nothing waits for the server.
class PulseConnection {
public:
    /// ready: called once the server has answered, never before the constructor has returned.
    PulseConnection(pa_mainloop* loop, const std::string& client_name, std::function<void()> ready);
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    /// Not there, or gone. A broken connection stays so.
    [[nodiscard]] bool Broken() const { return broken_; }
    /// Null if there was no memory for one; broken, then.
    [[nodiscard]] pa_context* Context() const { return context_.get(); }

private:
    struct Release {
        void operator()(pa_context* context) const;
    };

    void Changed();

    std::function<void()> ready_;
    std::unique_ptr<pa_context, Release> context_;
    bool broken_ = true;
};

}  // namespace corvane::engine
