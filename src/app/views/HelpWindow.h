#pragma once

#include "app/views/FramedWindow.h"

namespace pryvane {

/// The illustrated guide; it comes with the program and needs no network.
class HelpWindow final : public FramedWindow {
    Q_OBJECT

public:
    HelpWindow();
};

} // namespace pryvane
