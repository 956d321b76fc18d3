// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The connection is followed while those who tell of it come and go.
#include "linux/system/connection.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include "private_bus.h"

namespace corvane::linux_desktop {
namespace {

class ConnectionTest : public ::testing::Test {
protected:
    /// Whether the monitor, who asks again and again, comes to be told of a modem, or of none.
    bool ModemComesToBe(bool there) {
        for (const QDeadlineTimer deadline(20'000); !deadline.hasExpired(); QThread::msleep(10)) {
            std::uint32_t flags = 0;
            connected = connection.InternetGetConnectedState(flags, 0);
            if (((flags & INTERNET_CONNECTION_MODEM) != 0) == there) return true;
            QCoreApplication::processEvents();
        }
        return false;
    }
    /// A modem is connected, which this machine's own routes know nothing of.
    void ConnectByModem() const { bus.Tell({"set", "70", "gsm", ""}); }

    PrivateBus bus{"network_mock.py"};
    Connection connection{bus.connection()};
    bool connected = false;
};

TEST_F(ConnectionTest, WithTheBusItsLastWordIsGoneToo) {
    ConnectByModem();
    ASSERT_TRUE(ModemComesToBe(true));
    bus.Die();
    EXPECT_TRUE(ModemComesToBe(false));
    EXPECT_FALSE(connection.InternetAutodial(INTERNET_AUTODIAL_FORCE_UNATTENDED, 0));
    EXPECT_FALSE(connection.InternetAutodialHangup(0));
    EXPECT_TRUE(ModemComesToBe(false));
}

TEST_F(ConnectionTest, ANetworkManagerThatIsRestartedIsFollowedAgain) {
    for (int start = 0; start < 2; ++start) {
        ConnectByModem();
        ASSERT_TRUE(ModemComesToBe(true)) << "start " << start;
        bus.EndServing();
        EXPECT_TRUE(ModemComesToBe(false)) << "start " << start;
        bus.Serve();
    }
    bus.Tell({"set", "20", "", ""});
    EXPECT_TRUE(ModemComesToBe(false));
}

}  // namespace
}  // namespace corvane::linux_desktop
