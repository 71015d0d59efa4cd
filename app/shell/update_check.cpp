#include "app/shell/update_check.h"

#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QUrl>

#include "models/shell/startup.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

void ShowUpdateWindow(QWidget* parent, const QString& remote) {
    QString text = Tr("MiseAJour", "Une nouvelle version de Mirvane est disponible.", "msgNouvelleVersion");
    if (!remote.isEmpty()) text += "\n\n" + remote;
    QMessageBox::information(parent, "Mirvane", text);
}

}  // namespace

void StartUpdateCheck(const QString& address, QWidget* parent) {
    const QUrl url(address);
    if (address.isEmpty() || !url.isValid()) return;
    auto* network = new QNetworkAccessManager(parent);
    network->setTransferTimeout(10000);
    QNetworkReply* reply = network->get(QNetworkRequest(url));
    QPointer<QWidget> owner(parent);
    QObject::connect(reply, &QNetworkReply::finished, network, [reply, network, owner] {
        reply->deleteLater();
        network->deleteLater();
        if (reply->error() != QNetworkReply::NoError || !owner) return;
        const std::string fetched = reply->readAll().trimmed().toStdString();
        if (JudgeUpdate(MIRVANE_VERSION_MAJOR, MIRVANE_VERSION_MINOR, MIRVANE_VERSION_PATCH, fetched) !=
            UpdateVerdict::UpToDate)
            ShowUpdateWindow(owner, QString::fromStdString(fetched));
    });
}

}  // namespace mirvane::app
