#include "hosts/mac/BookmarkGrants.h"

#include "core/Escape.h"
#include "hosts/mac/CocoaText.h"

namespace pryvane {

/// The folders whose access was started, until it is stopped at the end.
struct BookmarkGrants::Granted {
    NSMutableArray* urls = [[NSMutableArray alloc] init];
    bool any = false; ///< also one that was picked in this process, whose access the panel started
    Granted() = default;
    Granted(const Granted&) = delete;
    Granted& operator=(const Granted&) = delete;
    ~Granted()
    {
        for (NSURL* url in urls)
            [url stopAccessingSecurityScopedResource];
        [urls release];
    }
};

BookmarkGrants::BookmarkGrants(FileSystem& disk, std::string volumeFolder)
    : m_disk(disk), m_volumeFolder(volumeFolder == "/" ? std::string() : std::move(volumeFolder)),
      m_granted(std::make_unique<Granted>())
{
}

BookmarkGrants::~BookmarkGrants() = default;

Result<Bytes> BookmarkGrants::make(const FileURL& folder)
{
    @autoreleasepool {
        NSURL* url = cocoaURL(m_volumeFolder + folder.absolutePath(), true);
        NSError* error = nil;
        NSData* token = [url bookmarkDataWithOptions:NSURLBookmarkCreationWithSecurityScope
                      includingResourceValuesForKeys:nil
                                       relativeToURL:nil
                                               error:&error];
        if (!token)
            return Error{"\"" + forScreen(folder.absolutePath()) + "\" cannot be opened: " +
                         forScreen(plainText([error localizedDescription])) +
                         "; choose another folder"};
        m_granted->any = true;
        return Bytes{std::string(static_cast<const char*>([token bytes]), [token length])};
    }
}

bool BookmarkGrants::reopen(const Bytes& token)
{
    @autoreleasepool {
        NSData* data = [NSData dataWithBytes:token.data.data() length:token.data.size()];
        BOOL isStale = NO;
        NSError* error = nil;
        NSURL* url = [NSURL URLByResolvingBookmarkData:data
                                               options:NSURLBookmarkResolutionWithSecurityScope |
                                                       NSURLBookmarkResolutionWithoutUI
                                         relativeToURL:nil
                                   bookmarkDataIsStale:&isStale
                                                 error:&error];
        // A stale one may name what was put in the place of its folder.
        if (!url || isStale || !hostPath(url).starts_with(m_volumeFolder))
            return false;
        if (![url startAccessingSecurityScopedResource])
            return false;
        [m_granted->urls addObject:url];
        m_granted->any = true;
        return true;
    }
}

bool BookmarkGrants::writable(const FileURL& folder)
{
    return m_granted->any && m_disk.writable(folder);
}

} // namespace pryvane
