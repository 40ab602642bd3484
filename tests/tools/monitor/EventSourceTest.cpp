// The source of events with a control socket of the test.

#include "events/EventSource.h"
#include "EventServer.h"
#include "process/Interrupt.h"
#include "support/StandIn.h"
#include "values/Failure.h"

#include "../doctor/DoctorWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <grp.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using cli::Event;
using cli::EventSource;
using Kind = cli::Event::Kind;
using testing::HasSubstr;

namespace {

const EventSource::Clock::time_point FAR_AWAY = EventSource::Clock::time_point::max();
const EventSource::Clock::time_point PASSED = EventSource::Clock::time_point::min();

std::size_t ownSockets() {
    std::size_t count = 0;
    for (const auto& file : std::filesystem::directory_iterator("/tmp"))
        count += file.path().filename().string().rfind("wpa_ctrl_", 0) == 0 ? 1U : 0U;
    return count;
}

class Source : public testing::Test {
protected:
    Source() {
        m_standIn.on({"arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
        m_standIn.on({"-iwlan0", "arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
        m_standIn.on({"*"}).prints("12 wpa_supplicant -B -i wlan0\n");
    }

    /// A source that is attached to the server.
    std::unique_ptr<EventSource> attached() {
        std::thread server([this] { m_server->attach(); });
        auto source = std::make_unique<EventSource>("wlan0", m_interrupt);
        server.join();
        return source;
    }

    /// Why no source can be made; "" if one can.
    std::string obstacle() {
        try {
            const EventSource source("wlan0", m_interrupt);
            return "";
        } catch (const cli::Failure& error) {
            return error.what();
        }
    }

    cli::Interrupt m_interrupt;                             // before the first thread
    const cli::Interrupt::Deferred m_deferred{m_interrupt}; // a slow test is not ended by force
    test::StandIn m_standIn;
    std::optional<test::EventServer> m_server{std::in_place};
};

TEST_F(Source, GivesEachEventInOrder) {
    const auto source = attached();
    m_server->send("<3>CTRL-EVENT-SCAN-STARTED ");
    m_server->send("<3>CTRL-EVENT-SCAN-RESULTS ");
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::SCAN_STARTED);
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::SCAN_FINISHED);
}

TEST_F(Source, GivesNothingAtTheDeadline) {
    const auto source = attached();
    EXPECT_FALSE(source->next(PASSED).has_value());
    EXPECT_FALSE(
        source->next(EventSource::Clock::now() + std::chrono::milliseconds(5)).has_value());
}

TEST_F(Source, GivesAnEventThatCameBeforeTheDeadlineAlsoLater) {
    const auto source = attached();
    m_server->send("<3>CTRL-EVENT-SCAN-RESULTS ");
    const auto event = source->next(PASSED);
    ASSERT_TRUE(event.has_value());
    EXPECT_EQ(event->kind, Kind::SCAN_FINISHED);
}

TEST_F(Source, AddsWhatEarlierEventsSaid) {
    const auto source = attached();
    m_server->send("<3>Trying to associate with 02:00:00:00:01:00 (SSID='home' freq=2412 MHz)");
    m_server->send(
        "<3>CTRL-EVENT-CONNECTED - Connection to 02:00:00:00:01:00 completed [id=0 id_str=]");
    source->next(FAR_AWAY);
    EXPECT_EQ(source->next(FAR_AWAY)->ssid, "home");
}

TEST_F(Source, CutsAMessageThatIsTooLong) {
    const auto source = attached();
    m_server->send("<3>" + std::string(20'000, 'x'));
    m_server->send("<3>CTRL-EVENT-SCAN-RESULTS ");
    const auto event = source->next(FAR_AWAY);
    EXPECT_EQ(event->kind, Kind::OTHER);
    EXPECT_EQ(event->text, std::string(event->text.size(), 'x'));
    EXPECT_GT(event->text.size(), 4000U);
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::SCAN_FINISHED);
}

TEST_F(Source, NoticesTheDeathOfTheSupplicant) {
    const auto source = attached();
    m_server->send("<3>CTRL-EVENT-SCAN-RESULTS ");
    m_server->die();
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::SCAN_FINISHED) << "what it sent before";
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::LOST);
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::LOST);
}

TEST_F(Source, NoticesThatTheSocketIsGone) {
    const auto source = attached();
    m_server.reset();
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::LOST);
}

// The new one does not know this listener.
TEST_F(Source, NoticesThatAnotherSupplicantHasTakenThePlace) {
    const auto source = attached();
    m_server->startAgain();
    EXPECT_EQ(source->next(FAR_AWAY)->kind, Kind::LOST);
}

TEST_F(Source, EndsItsWaitBySignal) {
    const auto source = attached();
    kill(getpid(), SIGINT);
    EXPECT_THROW(source->next(FAR_AWAY), cli::Interrupted);
}

TEST_F(Source, RemovesItsSocket) {
    {
        const auto source = attached();
        EXPECT_EQ(ownSockets(), 1U);
    }
    EXPECT_EQ(ownSockets(), 0U);
}

TEST_F(Source, NamesASupplicantThatRefusesListeners) {
    std::thread server([this] {
        m_server->receive();
        m_server->send("FAIL\n");
    });
    EXPECT_THAT(obstacle(), HasSubstr("the supplicant does not answer for wlan0; "));
    server.join();
    EXPECT_EQ(ownSockets(), 0U);
}

TEST_F(Source, NamesAMissingSocket) {
    std::filesystem::remove(test::EventServer::PATH);
    EXPECT_THAT(obstacle(), HasSubstr("the supplicant does not serve wlan0: there is no "
                                      "/run/wpa_supplicant/wlan0; start it for this interface"));
    std::filesystem::remove_all(test::EventServer::FOLDER);
    EXPECT_THAT(obstacle(), HasSubstr("there is no folder /run/wpa_supplicant; put"));
}

TEST_F(Source, NamesADeadSocket) {
    m_server->die();
    EXPECT_THAT(obstacle(), HasSubstr("no process listens at /run/wpa_supplicant/wlan0"));
}

TEST_F(Source, NamesASupplicantThatDoesNotRun) {
    m_server->die();
    m_standIn.reset();
    m_standIn.on({"*"}).prints("");
    EXPECT_THAT(obstacle(), HasSubstr("wpa_supplicant is not running; start it as root"));
}

TEST_F(Source, NamesASocketThatIsClosedToThisUser) {
    chmod(test::EventServer::PATH.c_str(), 0700);
    chmod(test::EventServer::FOLDER.c_str(), 0755);
    for (const auto& file : std::filesystem::recursive_directory_iterator(m_standIn.folder()))
        chmod(file.path().c_str(), 0777);
    chmod(m_standIn.folder().c_str(), 0777);
    const test::OrdinaryUser user;
    if (!user)
        GTEST_SKIP() << "only root can become another user";
    EXPECT_THAT(obstacle(), HasSubstr("/run/wpa_supplicant/wlan0 is closed to all but root; run"));
}

} // namespace
