// A display behind a slow line: a process that listens under a display number of its own and passes on what comes, in
// either direction a fixed time later and in order. It ends with the object.
#pragma once

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace grxbench {

namespace line {

using Clock = std::chrono::steady_clock;

inline std::string socket_path(int display) {
    return "/tmp/.X11-unix/X" + std::to_string(display);
}

// The address of a path; with `hidden` that of Linux's other name space, where no file is left behind.
struct Address {
    sockaddr_un value{};
    socklen_t length = 0;
    Address(const std::string& path, bool hidden) {
        value.sun_family = AF_UNIX;
        std::strncpy(value.sun_path + (hidden ? 1 : 0), path.c_str(), sizeof value.sun_path - 2);
        length = static_cast<socklen_t>(sizeof(sa_family_t) + path.size() + 1);
    }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&value); }
};

inline int connect_to(int display) {
    for (const bool hidden : {false, true}) {
        const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const Address address(socket_path(display), hidden);
        if (connect(fd, address.get(), address.length) == 0) return fd;
        close(fd);
    }
    return -1;
}

// One direction of a connection.
struct Way {
    struct Piece {
        Clock::time_point due;
        std::string bytes;
    };
    int from, to;
    std::deque<Piece> under_way;

    bool take(Clock::duration delay) {
        std::array<char, 65536> bytes;
        const ssize_t count = read(from, bytes.data(), bytes.size());
        if (count <= 0) return false;
        under_way.push_back({Clock::now() + delay, std::string(bytes.data(), static_cast<std::size_t>(count))});
        return true;
    }
    bool deliver() {
        while (!under_way.empty() && under_way.front().due <= Clock::now()) {
            std::string& bytes = under_way.front().bytes;
            const ssize_t count = send(to, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count < 0) return false;
            bytes.erase(0, static_cast<std::size_t>(count));
            if (bytes.empty()) under_way.pop_front();
        }
        return true;
    }
};

struct Connection {
    Way there, back;
    Connection(int client, int server) : there{client, server, {}}, back{server, client, {}} {}
    Connection(const Connection&) = delete;
    ~Connection() {
        close(there.from);
        close(there.to);
    }
};

using Connections = std::vector<std::unique_ptr<Connection>>;

// What is under way is looked at every millisecond; else the next bytes are waited for.
inline int waiting_time(const Connections& connections) {
    for (const auto& c : connections)
        if (!c->there.under_way.empty() || !c->back.under_way.empty()) return 1;
    return -1;
}

inline void wait_for_bytes(int listening, const Connections& connections, std::vector<pollfd>& waiting) {
    waiting.assign(1, {listening, POLLIN, 0});
    for (const auto& c : connections) {
        waiting.push_back({c->there.from, POLLIN, 0});
        waiting.push_back({c->back.from, POLLIN, 0});
    }
    poll(waiting.data(), waiting.size(), waiting_time(connections));
}

inline bool pass_on(Connection& c, const pollfd* ends, Clock::duration delay) {
    const bool open = (ends[0].revents == 0 || c.there.take(delay)) && (ends[1].revents == 0 || c.back.take(delay));
    return open && c.there.deliver() && c.back.deliver();
}

[[noreturn]] inline void serve(int listening, int display, Clock::duration delay) {
    Connections connections;
    std::vector<pollfd> waiting;
    for (;;) {
        wait_for_bytes(listening, connections, waiting);
        for (std::size_t i = connections.size(); i-- > 0;)
            if (!pass_on(*connections[i], &waiting[1 + 2 * i], delay))
                connections.erase(connections.begin() + static_cast<std::ptrdiff_t>(i));
        if ((waiting[0].revents & POLLIN) == 0) continue;
        const int client = accept(listening, nullptr, nullptr);
        const int server = client >= 0 ? connect_to(display) : -1;
        if (server >= 0) {
            connections.push_back(std::make_unique<Connection>(client, server));
        } else if (client >= 0) {
            close(client);
        }
    }
}

} // namespace line

class SlowLine {
  public:
    /// `display` is the number of the server; `delay` is that of one direction.
    SlowLine(int display, std::chrono::milliseconds delay) {
        for (number_ = 2000; number_ < 3000 && listening_ < 0; ++number_) listening_ = listen_as(number_);
        --number_;
        process_ = listening_ >= 0 ? fork() : -1;
        if (process_ != 0) return;
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        line::serve(listening_, display, delay);
    }
    ~SlowLine() {
        if (process_ > 0) {
            kill(process_, SIGTERM);
            waitpid(process_, nullptr, 0);
        }
        if (listening_ < 0) return;
        close(listening_);
        unlink(line::socket_path(number_).c_str());
    }
    SlowLine(const SlowLine&) = delete;
    SlowLine& operator=(const SlowLine&) = delete;

    bool works() const { return process_ > 0; }
    std::string name() const { return ":" + std::to_string(number_); }

  private:
    static int listen_as(int number) {
        const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const line::Address address(line::socket_path(number), false);
        if (bind(fd, address.get(), address.length) == 0 && listen(fd, 8) == 0) return fd;
        close(fd);
        return -1;
    }

    int number_ = 0;
    int listening_ = -1;
    pid_t process_ = -1;
};

} // namespace grxbench
