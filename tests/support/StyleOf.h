/// What a styled widget of the workbench was told and keeps to itself.
#pragma once

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace testing_support {

/// Opens the look that styled widgets share behind their public faces, so that the host's headers
/// need no getters which no host has.
class StyleOf : public ComStyleOption {
  public:
    /// @return control type, pictures, alignments and so on, as the widget has them now.
    static const auto& widget(const ComStyleOption* styled) { return *(styled->*(&StyleOf::look)); }
};

}  // namespace testing_support
