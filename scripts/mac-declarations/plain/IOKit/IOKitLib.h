#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef std::uint32_t io_object_t;
typedef io_object_t io_service_t;

extern "C" {
CFMutableDictionaryRef IOServiceMatching(const char* name);
io_service_t IOServiceGetMatchingService(std::uint32_t port, CFMutableDictionaryRef matching);
CFTypeRef IORegistryEntryCreateCFProperty(io_object_t entry, CFStringRef key,
                                          CFAllocatorRef allocator, std::uint32_t options);
int IOObjectRelease(io_object_t object);
}
