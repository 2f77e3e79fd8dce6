#pragma once
/// \file
/// A call from a second start of the program to the first one.

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>
#include <functional>
#include <memory>

namespace marvolin {

/// Hears the calls of later starts, on a local datagram socket beside the lock file of the first instance.
class FrontCall {
public:
    /// Runs in the user-interface thread for each call, with the caller's right to take the focus ("" when the system
    /// gives none).
    using Heard = std::function<void(const QByteArray& token)>;

    /// Listens at `path`; whatever lies there is replaced, so only the holder of the lock may make one. Without a
    /// socket, as in a folder that cannot be written, no call is ever heard.
    FrontCall(const QString& path, Heard heard);
    ~FrontCall();
    FrontCall(const FrontCall&) = delete;
    FrontCall& operator=(const FrontCall&) = delete;

    /// Calls the instance that listens at `path`. Does nothing when none does.
    static void Send(const QString& path, const QByteArray& token);

private:
    void Receive();

    QByteArray path_;
    Heard heard_;
    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace marvolin
