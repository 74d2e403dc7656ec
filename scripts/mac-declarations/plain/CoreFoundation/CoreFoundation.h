#pragma once

#include <cstdint>

typedef const void* CFTypeRef;
typedef const void* CFAllocatorRef;
typedef const struct PryvaneCheckString* CFStringRef;
typedef const struct PryvaneCheckLocale* CFLocaleRef;
typedef struct PryvaneCheckDictionary* CFMutableDictionaryRef;
typedef unsigned long CFTypeID;
typedef long CFIndex;
typedef unsigned char Boolean;
typedef std::uint32_t CFStringEncoding;
enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };

extern "C" {
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);
CFTypeID CFStringGetTypeID(void);
CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                      CFStringEncoding encoding);
CFLocaleRef CFLocaleCopyCurrent(void);
CFStringRef CFLocaleGetIdentifier(CFLocaleRef locale);
Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size, CFStringEncoding encoding);
}
