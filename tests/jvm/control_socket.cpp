// The control socket of wlan0, as a supplicant has it, for a test in Java: Java 11 has no such sockets. Accepts every
// listener and answers every other command with OK. Prints the commands that it receives, a line each. Of its standard
// input, it sends each line to all listeners; it ends with its input, as a killed supplicant does: the socket's file
// stays.

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char* FOLDER = "/run/wpa_supplicant";
constexpr const char* PATH = "/run/wpa_supplicant/wlan0";

struct Peer {
    sockaddr_un address{};
    socklen_t size = sizeof(sockaddr_un);

    sockaddr* generic() { return reinterpret_cast<sockaddr*>(&address); }
};

int openSocket() {
    std::filesystem::create_directories(FOLDER);
    std::filesystem::remove(PATH);
    Peer own;
    own.address.sun_family = AF_UNIX;
    std::strcpy(own.address.sun_path, PATH);
    const int number = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (bind(number, own.generic(), own.size) != 0) {
        std::perror(PATH);
        std::exit(1);
    }
    return number;
}

void send(int socket, Peer& peer, const std::string& text) {
    sendto(socket, text.data(), text.size(), MSG_DONTWAIT, peer.generic(), peer.size);
}

void serveCommand(int socket, std::vector<Peer>& listeners) {
    char command[4096];
    Peer peer;
    const ssize_t size = recvfrom(socket, command, sizeof command, 0, peer.generic(), &peer.size);
    if (size <= 0)
        return;
    const std::string text(command, static_cast<std::size_t>(size));
    if (text == "ATTACH")
        listeners.push_back(peer);
    send(socket, peer, "OK\n");
    std::cout << text << std::endl;
}

// Not by a stream, which would read more lines than one, so that the next wait did not see them.
bool readLine(std::string& line) {
    line.clear();
    for (char byte = 0; read(STDIN_FILENO, &byte, 1) == 1;) {
        if (byte == '\n')
            return true;
        line += byte;
    }
    return false;
}

bool serveInput(int socket, std::vector<Peer>& listeners) {
    std::string line;
    if (!readLine(line))
        return false;
    for (Peer& listener : listeners)
        send(socket, listener, line);
    return true;
}

} // namespace

int main() {
    const int socket = openSocket();
    std::cout << "ready" << std::endl;
    std::vector<Peer> listeners;
    pollfd either[] = {{socket, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    for (;;) {
        if (poll(either, 2, -1) < 0 && errno != EINTR)
            return 1;
        if (either[0].revents != 0)
            serveCommand(socket, listeners);
        if (either[1].revents != 0 && !serveInput(socket, listeners))
            return 0;
    }
}
