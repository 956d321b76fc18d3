// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/audience.h"

#include <utility>

namespace corvane::engine {

std::vector<std::shared_ptr<RecogniserClient>> Audience::Clients() {
    std::vector<std::shared_ptr<RecogniserClient>> living;
    std::erase_if(clients_, [&living](const std::weak_ptr<RecogniserClient>& client) {
        std::shared_ptr<RecogniserClient> held = client.lock();
        if (!held) return true;
        living.push_back(std::move(held));
        return false;
    });
    return living;
}

std::int32_t Audience::Interests() {
    std::int32_t interests = 0;
    for (const auto& client : Clients()) interests |= client->EventInterests();
    return interests;
}

}  // namespace corvane::engine
