#include "window/toolkit/front_call.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace marvolin {

namespace {

constexpr std::size_t kLongestToken = 512;  // bytes

/// The address of a socket. False when its path is too long for one.
bool AddressOf(const QByteArray& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) return false;
    std::copy(path.begin(), path.end(), address.sun_path);
    return true;
}

const sockaddr* Generic(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

int NewSocket() { return socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

}  // namespace

FrontCall::FrontCall(const QString& path, Heard heard) : path_(QFile::encodeName(path)), heard_(std::move(heard)) {
    sockaddr_un address;
    if (!AddressOf(path_, address)) return;
    socket_ = NewSocket();
    if (socket_ < 0) return;
    // A process that has died leaves its socket behind.
    unlink(path_.constData());
    if (bind(socket_, Generic(address), sizeof address) != 0) {
        close(std::exchange(socket_, -1));
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { Receive(); });
}

FrontCall::~FrontCall() {
    notifier_.reset();
    if (socket_ < 0) return;
    close(socket_);
    unlink(path_.constData());
}

void FrontCall::Receive() {
    std::array<char, kLongestToken> token{};
    const ssize_t length = recv(socket_, token.data(), token.size(), 0);
    if (length >= 0) heard_(QByteArray(token.data(), length));
}

void FrontCall::Send(const QString& path, const QByteArray& token) {
    sockaddr_un address;
    if (!AddressOf(QFile::encodeName(path), address)) return;
    const int socket = NewSocket();
    if (socket < 0) return;
    const QByteArray sent = token.left(static_cast<qsizetype>(kLongestToken));
    // Nobody to hear it is no error: the first instance may be ending.
    while (sendto(socket, sent.constData(), static_cast<std::size_t>(sent.size()), 0, Generic(address),
                  sizeof address) < 0 &&
           errno == EINTR) {
    }
    close(socket);
}

}  // namespace marvolin
