#pragma once

class QWidget;

namespace pryvane {

/// The chapters of the guide, with their pictures, below each other. They come with the program and
/// need no network.
[[nodiscard]] QWidget* makeGuide();

} // namespace pryvane
