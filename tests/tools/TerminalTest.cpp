// The output of commands to a terminal.

#include "Terminal.h"
#include "CommandFixture.h"
#include "TextLines.h"
#include "display/Text.h"
#include "support/Checkpoint.h"

#include <unistd.h>

using test::Arguments;
using test::CAPTURED;
using test::Ending;
using test::Program;
using test::Streams;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::vector<std::string> SSIDS = {
    "a network with a name of 32 byte",
    R"(\xd0\x94\xd0\xbe\xd0\xbc\xd0\xb0\xd1\x88\xd0\xbd\xd1\x8f\xd1\x8f \xd1\x81\xd0\xb5\xd1\x82\xd1\x8c)",
    R"(\xe5\x92\x96\xe5\x95\xa1\xe5\xba\x97\xe5\x92\x96\xe5\x95\xa1\xe5\xba\x97\xe5\x92\x96\xe5\x95\xa1)",
    R"(\xd9\x85\xd9\x82\xd9\x87\xd9\x89)",
    R"(\xe0\xb8\x97\xe0\xb8\xb5\xe0\xb9\x88\xe0\xb8\x9a\xe0\xb9\x89\xe0\xb8\xb2\xe0\xb8\x99)",
    R"(\xf0\x9f\x93\xb6\xf0\x9f\x8f\xa0)",
    R"(\x1b[2J\xff\xfe\x07\xe2\x80\xae\x01\x02\x03\x04\x05\x06\x07\x08\x10\x11\x12\x13\x14)",
};

std::string withoutColours(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\033')
            i = text.find('m', i);
        else if (text[i] != '\r')
            plain += text[i];
    }
    return plain;
}

class OnATerminal : public test::CommandFixture {
protected:
    /// The standard output of a command when that is a terminal.
    static std::string seen(const Arguments& arguments, unsigned short columns = 80) {
        test::TerminalPair terminal(columns);
        Program program(arguments, {CAPTURED, terminal.ownEnd()}, QUICK_PLATWIFI_PROGRAM);
        terminal.closeOwnEnd();
        const std::string text = terminal.readToEnd();
        outputOf(program.end());
        return text;
    }

    void serveEveryScript() {
        std::string found = "bssid / frequency / signal level / flags / ssid\n";
        for (const std::string& ssid : SSIDS)
            found += "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\t" + ssid + "\n";
        accept({"scan"});
        on({"scan_results"}).prints(found);
        on({"status"}).prints("ssid=" + SSIDS.back() + "\nwpa_state=COMPLETED\n");
        on({"get_network", "0", "phase1"}).prints(std::string(120, 'x'));
        serve({SSIDS[0], SSIDS[2], SSIDS.back()}); // few: a load takes many calls for each
    }

    // The stand-in reads the whole file of calls at each call, which slows down a long test.
    void forgetCalls() const { unlink((host.folder() + "/calls").c_str()); }
};

TEST_F(OnATerminal, NoLineIsWiderThanTheTerminal) {
    serveEveryScript();
    const Arguments commands[] = {{"scan"}, {"networks"}, {"status"}, {"show", SSIDS[0]}};
    constexpr unsigned short WIDTHS[] = {40, 60, 80};
    for (const unsigned short columns : WIDTHS) {
        for (const Arguments& command : commands) {
            forgetCalls();
            const auto lines = test::linesOf(withoutColours(seen(command, columns)));
            EXPECT_GE(lines.size(), 4u) << command[0];
            for (const std::string& line : lines)
                EXPECT_LE(cli::cellsOf(line), columns) << command[0] << ": " << line;
        }
    }
}

TEST_F(OnATerminal, NoSsidControlsTheTerminal) {
    serveEveryScript();
    const std::string text = withoutColours(seen({"networks"}, 200));
    EXPECT_THAT(text, Not(HasSubstr("\a")));
    EXPECT_THAT(text, Not(HasSubstr("\u202E")));
    EXPECT_THAT(text, HasSubstr(R"(\x1b[2J\xff\xfe\x07\xe2\x80\xae\x01)"));
    EXPECT_THAT(text, HasSubstr("咖啡店"));
}

TEST_F(OnATerminal, TheHeadingIsBold) {
    serve({"home"});
    EXPECT_THAT(seen({"networks"}), StartsWith("\033[1mSSID"));
}

TEST_F(OnATerminal, NothingIsColouredWithNoColorSetOrOnADumbTerminal) {
    serve({"home"});
    setenv("NO_COLOR", "1", 1);
    EXPECT_THAT(seen({"networks"}), StartsWith("SSID"));
    unsetenv("NO_COLOR");
    setenv("TERM", "dumb", 1);
    EXPECT_THAT(seen({"networks"}), StartsWith("SSID"));
}

/// A load that the client interrupts by a pause, with a terminal as standard error.
class ALongLoad : public OnATerminal {
protected:
    std::string seenOf(const std::vector<std::string>& ssids, const std::string& awaited) {
        test::Checkpoint loading("/tmp/loading");
        on({"get_network", "0", "priority"}).pausesAt(loading.path()).prints("5");
        serve(ssids);
        Program program({"networks"}, {CAPTURED, CAPTURED, m_terminal.ownEnd()});
        m_terminal.closeOwnEnd();
        loading.awaitArrival();
        if (!awaited.empty())
            m_terminal.readUntil(awaited);
        loading.letGo();
        const std::string text = m_terminal.readToEnd();
        const Ending ending = program.end();
        EXPECT_EQ(ending.status, 0);
        EXPECT_THAT(ending.out, HasSubstr(ssids[0]));
        return text;
    }

    test::TerminalPair m_terminal{80};
};

TEST_F(ALongLoad, ShowsALineAndErasesIt) {
    const std::string text = seenOf({"one", "two", "three", "four"}, "Loading 4 networks: ");
    EXPECT_THAT(text, testing::EndsWith("\r\033[K"));
    EXPECT_THAT(text, Not(HasSubstr("\n")));
}

TEST_F(ALongLoad, OfFewNetworksShowsNoLine) {
    EXPECT_EQ(seenOf({"one", "two", "three"}, ""), "");
}

} // namespace
