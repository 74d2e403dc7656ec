#pragma once

#include "core/Result.h"
#include "platform/FileURL.h"

namespace pryvane {

/// The desktop's file viewer. Main thread only.
class FileViewer {
public:
    virtual ~FileViewer() = default;

    /// Shows the folder that holds the item, with the item selected where the viewer can. Never
    /// opens the item itself and never waits for the viewer. The error says that nothing is there
    /// any more, or that there is no viewer.
    virtual Result<Done> reveal(const FileURL& item) = 0;
};

} // namespace pryvane
