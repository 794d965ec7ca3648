// CoreFoundation's URLs are NSURLs. A pool around each call releases NSURL's temporary objects.
#import <Foundation/NSAutoreleasePool.h>
#import <Foundation/NSString.h>
#import <Foundation/NSURL.h>

#include <stdint.h>

static const intptr_t posixStyle = 0;

NSURL* CFURLCreateWithFileSystemPath(const void* allocator, NSString* path, intptr_t style, unsigned char isDirectory) {
    (void)allocator;
    if (![path length] || style != posixStyle) return nil;
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    NSURL* url = [[NSURL alloc] initFileURLWithPath:path isDirectory:isDirectory];
    [pool drain];
    return url;
}

NSURL* CFURLCreateWithString(const void* allocator, NSString* text, NSURL* base) {
    (void)allocator;
    if (![text length]) return nil;
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    NSURL* url = [[NSURL alloc] initWithString:text relativeToURL:base];
    [pool drain];
    return url;
}

NSString* CFURLCopyFileSystemPath(NSURL* url, intptr_t style) {
    if (style != posixStyle) return nil;
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    NSString* path = [[url path] copy];
    [pool drain];
    return path;
}
