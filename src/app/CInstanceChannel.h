#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

namespace kavrin {

// How a second start of Kavrin hands its files to the one already running: the first instance
// listens on a local socket of the user's own (in the temp folder, named after the user); a
// second one connects, sends the absolute paths, one a line, ended by an empty line, and waits
// for "OK".
class CInstanceChannel : public QObject {
    Q_OBJECT
public:
    explicit CInstanceChannel(QObject* parent = nullptr);
    ~CInstanceChannel() override;

    // "Kavrin-" and the user's name.
    static QString ServerName();

    // Starts listening; a socket left behind by an instance that died is removed first (the
    // caller holds the instance lock, so no live instance owns it). False when that fails.
    bool Listen(const QString& name = ServerName());

    // The second start: hands the files (absolute paths; none just brings the first instance
    // to the front) over and waits for the confirmation. False when nobody answered in time.
    static bool HandOver(const QStringList& files, const QString& name = ServerName(), int timeoutMs = 5000);

signals:
    // A second start handed these files over (possibly none).
    void FilesReceived(const QStringList& files);

private:
    void Accept();
    void Read(QLocalSocket* socket);

    QLocalServer* server_;
};

} // namespace kavrin
