/* Read before everything else. */
#pragma once

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>

typedef NSString* CFStringRef;

@interface NSURL (PryvaneCheck)
- (NSData*)bookmarkDataWithOptions:(NSUInteger)options
    includingResourceValuesForKeys:(NSArray*)keys
                     relativeToURL:(NSURL*)url
                             error:(NSError**)error;
+ (instancetype)URLByResolvingBookmarkData:(NSData*)data
                                   options:(NSUInteger)options
                             relativeToURL:(NSURL*)url
                       bookmarkDataIsStale:(BOOL*)isStale
                                     error:(NSError**)error;
- (BOOL)startAccessingSecurityScopedResource;
- (void)stopAccessingSecurityScopedResource;
@end
enum : NSUInteger {
    NSURLBookmarkCreationWithSecurityScope = 1UL << 11,
};

@interface NSWorkspace (PryvaneCheck)
- (void)activateFileViewerSelectingURLs:(NSArray*)urls;
@end

@interface NSApplication (PryvaneCheck)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
@end
