#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" {
CFStringRef SCDynamicStoreCopyComputerName(const void* store, CFStringEncoding* encoding);
}
