/// The installations used last.
#pragma once

#include <QMenu>
#include <functional>

namespace workbench {

class Settings;

/// Lists the folders that the settings keep, made anew whenever it opens. A folder that is gone
/// stays, greyed out: it may be on a disk that comes back.
class InstallationMenu : public QMenu {
    Q_OBJECT
  public:
    /// @param chosen called with the folder of the entry that was clicked.
    InstallationMenu(Settings& settings, std::function<void(const QString&)> chosen);

  private:
    void fill();

    Settings& settings;
    std::function<void(const QString&)> chosen;
};

}  // namespace workbench
