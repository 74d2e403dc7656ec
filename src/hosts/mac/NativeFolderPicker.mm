#include "hosts/mac/NativeFolderPicker.h"

#include "hosts/mac/CocoaText.h"

#import <AppKit/AppKit.h>

namespace pryvane {

namespace {

/// The place on the volume of a host path; none outside the volume.
std::optional<FileURL> onVolume(const std::string& volumeFolder, const std::string& host)
{
    if (!host.starts_with(volumeFolder))
        return std::nullopt;
    const std::string inside = host.substr(volumeFolder.size());
    if (!inside.empty() && !inside.starts_with('/'))
        return std::nullopt;
    return FileURL::fileURLWithPath(inside.empty() ? "/" : inside);
}

} // namespace

} // namespace pryvane

@interface PryvaneFolderRule : NSObject <NSOpenSavePanelDelegate> {
@public
    const pryvane::FolderQuestion* question;
    const std::string* volumeFolder;
}
- (BOOL)panel:(id)sender shouldEnableURL:(NSURL*)url;
@end

@implementation PryvaneFolderRule
- (BOOL)panel:(id)sender shouldEnableURL:(NSURL*)url
{
    (void)sender;
    const auto place = pryvane::onVolume(*volumeFolder, pryvane::hostPath(url));
    return place && (!question->allows || question->allows(*place)) ? YES : NO;
}
@end

namespace pryvane {

NativeFolderPicker::NativeFolderPicker(std::string volumeFolder)
    : m_volumeFolder(volumeFolder == "/" ? std::string() : std::move(volumeFolder))
{
}

std::optional<FileURL> NativeFolderPicker::pickFolder(const FolderQuestion& question)
{
    @autoreleasepool {
        PryvaneFolderRule* rule = [[[PryvaneFolderRule alloc] init] autorelease];
        rule->question = &question;
        rule->volumeFolder = &m_volumeFolder;
        NSOpenPanel* panel = [NSOpenPanel openPanel];
        [panel setCanChooseFiles:NO];
        [panel setCanChooseDirectories:YES];
        [panel setAllowsMultipleSelection:NO];
        [panel setPrompt:cocoaText(question.prompt)];
        [panel setMessage:cocoaText(question.message)];
        [panel setDirectoryURL:cocoaURL(m_volumeFolder + question.directory.absolutePath(), true)];
        [panel setDelegate:rule];
        const bool isChosen = [panel runModal] == NSModalResponseOK;
        [panel setDelegate:nil];
        NSURL* url = isChosen ? [[panel URLs] firstObject] : nil;
        // A path that was typed in was not asked about while it was shown.
        if (!url || ![rule panel:panel shouldEnableURL:url])
            return std::nullopt;
        return onVolume(m_volumeFolder, hostPath(url));
    }
}

} // namespace pryvane
