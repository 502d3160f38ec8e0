/// What a program asks the system to open.
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace testing_support {

/// Takes what would be opened by the system, until the end of the scope.
class OpenedUrls : public QObject {
    Q_OBJECT
  public:
    OpenedUrls() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "take"); }
    ~OpenedUrls() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> urls;

  public Q_SLOTS:
    void take(const QUrl& url) { urls.append(url); }
};

}  // namespace testing_support
