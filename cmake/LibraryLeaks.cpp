// Linked into programs that print or have a window, in builds with a sanitizer only. Fontconfig loses a few
// hundred bytes once, while it reads its own settings; D-Bus a buffer, when the accessibility bus ends first.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus-1\n";
}
