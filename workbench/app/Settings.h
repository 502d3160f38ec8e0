/// What the window keeps between runs.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QSettings>
#include <QStringList>

namespace workbench {

/// Window, docks, skin, scale, language and the installations used last, in one readable file. What
/// it holds and nobody understands is left out of account, never an error.
class Settings : public QObject {
    Q_OBJECT
  public:
    /// @param file made when there is something to keep; nothing else of the system is touched.
    explicit Settings(const QString& file);

    /// Gives the host its kept skin and scale, and the window its language: by the locale where
    /// none was ever chosen.
    void applyLook();
    /// Keeps skin and language from now on when they change.
    void follow();
    /// @param scale that somebody asked for, whether or not the screen holds it; 1.0 is 100 %.
    void keepScale(double scale);

    /// @return false where nothing is kept of a window.
    bool restore(QMainWindow& window) const;
    void keep(const QMainWindow& window);

    /// @return folders, the one used last first.
    QStringList installations() const;
    void addInstallation(const QString& folder);
    void forgetInstallations();

    QString file() const { return values.fileName(); }
    /// @return whether what was kept so far is on the disk.
    bool isWritten() const { return values.status() == QSettings::NoError; }

  Q_SIGNALS:
    void unwritten();

  private:
    void set(const char* key, const QVariant& value);

    QSettings values;
};

}  // namespace workbench
