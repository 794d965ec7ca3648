// A CoreFoundation reference is an object of the runtime.
#import <Foundation/NSObject.h>

void CFRelease(id object) { [object release]; }
