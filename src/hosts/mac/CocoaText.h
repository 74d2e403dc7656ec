#pragma once

#import <Foundation/Foundation.h>
#include <string>
#include <string_view>

namespace pryvane {

/// Text for people: what is no valid UTF-8 is shown as nothing.
inline NSString* cocoaText(std::string_view text)
{
    NSString* made = [[[NSString alloc] initWithBytes:text.data()
                                               length:text.size()
                                             encoding:NSUTF8StringEncoding] autorelease];
    return made ? made : @"";
}

inline std::string plainText(NSString* text)
{
    const char* bytes = [text UTF8String];
    return bytes ? bytes : "";
}

/// A path of the host. A Mac's names are valid UTF-8, so that no byte is lost.
inline NSURL* cocoaURL(std::string_view hostPath, bool isFolder)
{
    NSString* path =
        [[NSFileManager defaultManager] stringWithFileSystemRepresentation:hostPath.data()
                                                                    length:hostPath.size()];
    return path ? [NSURL fileURLWithPath:path isDirectory:isFolder] : nil;
}

/// The bytes of a file URL's path; empty for what is none.
inline std::string hostPath(NSURL* url)
{
    const char* bytes = [url isFileURL] ? [[url path] fileSystemRepresentation] : nullptr;
    return bytes ? bytes : "";
}

} // namespace pryvane
