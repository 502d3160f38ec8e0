/// Every window and page that a person gets to see.
#pragma once

#include <functional>
#include <memory>

#include "tests/support/TestSupport.h"

namespace looks_tests {

/// A window as it stands on one of its pages.
struct Page {
    const char* name;
    std::function<std::unique_ptr<QWidget>()> open;  ///< Made, shown and laid out.
};

inline void PrintTo(const Page& page, std::ostream* out) {
    *out << page.name;
}

/// @return all of them, over the sample installation.
const std::vector<Page>& allPages();

/// @return the page of allPages() of this name; it has to be there.
const Page& pageNamed(const std::string& name);

/// @return the window of a page, with the keys going to it.
std::unique_ptr<QWidget> withKeys(const Page& page);

/// Names a test by its page.
std::string nameOfPage(const testing::TestParamInfo<Page>& info);

/// @return the windows that the workbench adds, each as large as it opens by itself.
const std::vector<Page>& windowsOfTheWorkbench();

/// @return the font that somebody has who doubled it.
QFont doubled(QFont font);

/// @return the tip that a widget shows to a mouse that rests at a place in it; empty for none.
QString tipOf(QWidget* widget, const QPoint& place);

/// A host with the sample installation in a temporary copy; fresh again afterwards.
class SampleHost {
  public:
    SampleHost();
    SampleHost(const SampleHost&) = delete;
    ~SampleHost();
};

}  // namespace looks_tests
