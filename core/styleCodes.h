/// The style codes of the host's widget library, as setControlType and zBaseWidget take them.
#pragma once

namespace newpro {

enum StyleCode {
    SecondaryText = 2,  ///< Steps back behind a title, unless it is bold.
    CardWidget = 9,
    TransparentRow = 10,
    DividerLine = 13,
    SplitPart = 18,  ///< One of the buttons inside a split button.
    NewButton = 88,
};

}  // namespace newpro
