// Linked into programs that print, in builds with a sanitizer only. Fontconfig loses a few hundred
// bytes once, while it reads its own settings.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
