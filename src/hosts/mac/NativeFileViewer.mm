#include "hosts/mac/NativeFileViewer.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "hosts/mac/CocoaText.h"
#include "core/HostKernel.h"
#include "volume/PathParts.h"

#import <AppKit/AppKit.h>

namespace pryvane {

/// The folder's path is asked of the kernel, by the handle that the volume gives: joining names
/// would follow the volume's own links out into the host.
Result<Done> NativeFileViewer::reveal(const FileURL& item)
{
    @autoreleasepool {
        const Error gone{"\"" + forScreen(item.absolutePath()) + "\" is not there any more"};
        const auto spelled = m_volume.spelledPath(item);
        const FileKind kind = m_volume.kind(item);
        if (!spelled || kind == FileKind::Missing)
            return gone;
        const ParentAndName parts = parentAndName(*spelled);
        const UniqueFd folder(m_volume.openFolder(FileURL::fileURLWithPath(parts.parent)));
        const std::string above = folder ? pathOfHandle(folder.get()) : std::string();
        const std::string whole = parts.name == "." ? above : joinedPath(above, parts.name);
        NSURL* url = above.empty() ? nil : cocoaURL(whole, kind == FileKind::Folder);
        if (!url)
            return gone;
        [[NSWorkspace sharedWorkspace] activateFileViewerSelectingURLs:@[ url ]];
        return Done{};
    }
}

} // namespace pryvane
