#include "app/CInstanceChannel.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QVariant>

namespace kavrin {

namespace {
const QByteArray kEnd = QByteArrayLiteral("\n\n");
const QByteArray kConfirmation = QByteArrayLiteral("OK\n");
// A second start sends a few paths; anything much larger is not from Kavrin.
constexpr qsizetype kMaxMessage = 1 << 20;
} // namespace

CInstanceChannel::CInstanceChannel(QObject* parent) : QObject(parent), server_(new QLocalServer(this)) {
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, &CInstanceChannel::Accept);
}

CInstanceChannel::~CInstanceChannel() = default;

QString CInstanceChannel::ServerName() {
    QString user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    return QStringLiteral("Kavrin-%1").arg(user);
}

bool CInstanceChannel::Listen(const QString& name) {
    QLocalServer::removeServer(name);
    return server_->listen(name);
}

void CInstanceChannel::Accept() {
    while (QLocalSocket* socket = server_->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(socket); });
        if (socket->bytesAvailable() > 0)
            Read(socket);
    }
}

// The message may come in pieces; it is complete with its empty line.
void CInstanceChannel::Read(QLocalSocket* socket) {
    QByteArray message = socket->property("message").toByteArray() + socket->readAll();
    if (message.size() > kMaxMessage) {
        socket->abort();
        return;
    }
    socket->setProperty("message", message);
    const bool complete = message == "\n" || message.endsWith(kEnd);
    if (!complete)
        return;
    QStringList files;
    for (const QByteArray& line : message.split('\n'))
        if (!line.isEmpty())
            files << QString::fromUtf8(line);
    socket->write(kConfirmation);
    socket->flush();
    emit FilesReceived(files);
}

bool CInstanceChannel::HandOver(const QStringList& files, const QString& name, int timeoutMs) {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(timeoutMs))
        return false;
    QByteArray message;
    for (const QString& file : files)
        message += file.toUtf8().replace('\n', ' ') + '\n';
    message += '\n';
    socket.write(message);
    if (!socket.waitForBytesWritten(timeoutMs))
        return false;
    QByteArray answer;
    while (!answer.endsWith('\n') && socket.waitForReadyRead(timeoutMs))
        answer += socket.readAll();
    return answer == kConfirmation;
}

} // namespace kavrin
