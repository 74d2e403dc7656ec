#pragma once

#include "scan/walker/EntryList.h"
#include "scan/walker/WalkReport.h"
#include "signatures/PatternAutomaton.h"
#include "volume/folders/Ancestry.h"
#include "volume/folders/FolderHandle.h"

#include <string>

namespace pryvane {

/// A part of the tree that one thread walks by itself: a folder, or some of a folder's entries.
struct WalkTask {
    FolderHandle folder;
    std::string path;                  ///< of the folder, with a slash at its end
    PatternAutomaton::State state = 0; ///< of the matching, behind that path
    bool matched = false;              ///< a text of the list already ended inside that path
    EntryList entries;                 ///< read by then, still to be visited
    bool unread = false;               ///< whether the folder itself is still to be read
    Ancestry above;                    ///< the folder and those above it
    WalkReport::Place place;           ///< where its findings belong
};

} // namespace pryvane
