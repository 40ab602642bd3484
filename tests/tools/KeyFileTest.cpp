// The command line and the key file of the cipher: only the document with all secrets needs the file.

#include "CommandFixture.h"
#include "support/KeyWorld.h"

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

using testing::Contains;

namespace {

constexpr const char* KEY_FILE = "/tmp/key-file/crypt.key";

class KeyFile : public test::CommandFixture {
protected:
    KeyFile() {
        mkdir("/tmp/key-file", S_IRWXU);
        setenv("PLATFORM_KEY_FILE", KEY_FILE, 1);
        unlink(KEY_FILE);
    }

    void expectThatASecretIsSet() {
        accept({"set_network", "0", "psk", "\"correct horse\""});
        serve({"home"});
        EXPECT_EQ(outputOf(test::platwifi({"set", "home", "psk=-"}, "correct horse\n")),
                  "home is saved.\n");
        EXPECT_THAT(changes(), Contains("set_network 0 psk \"correct horse\""));
    }

    std::string document() {
        on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK");
        on({"get_network", "0", "proto"}).prints("RSN");
        on({"get_network", "0", "psk"}).prints("*");
        serve({"home"});
        return outputOf(test::platwifi({"xml", "--full"}));
    }
};

TEST_F(KeyFile, IsNotMadeForASecretThatIsSet) {
    expectThatASecretIsSet();
    EXPECT_NE(access(KEY_FILE, F_OK), 0);
}

// The cipher would refuse such a file.
TEST_F(KeyFile, IsNotReadForASecretThatIsSet) {
    std::ofstream(KEY_FILE) << "no key";
    expectThatASecretIsSet();
}

// Neither root nor another user can make a folder there.
TEST_F(KeyFile, MayBeInAFolderThatCannotBeMade) {
    setenv("PLATFORM_KEY_FILE", "/proc/key-file/crypt.key", 1);
    expectThatASecretIsSet();
}

// A service that reads the document has the same file.
TEST_F(KeyFile, EnciphersTheSecretsOfTheDocument) {
    const std::string text = document();
    ASSERT_EQ(access(KEY_FILE, F_OK), 0);
    const auto start = text.find("crypt1:");
    ASSERT_NE(start, std::string::npos) << text;
    EXPECT_EQ(test::decrypted(text.substr(start, text.find('"', start) - start)).text, "*");
}

} // namespace
