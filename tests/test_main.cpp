#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>

// Of fontconfig's, found in programs that write text: what it keeps for a thread of Pango's that looks up fonts, when
// the font map goes before that thread is done; and that thread's hand-over, whose locks ThreadSanitizer does not see.
extern "C"
{
    __attribute__ ((visibility ("default"))) const char* __lsan_default_suppressions ();
    __attribute__ ((visibility ("default"))) const char* __tsan_default_suppressions ();
}

const char* __lsan_default_suppressions ()
{
    return "leak:libfontconfig.so\n";
}

const char* __tsan_default_suppressions ()
{
    return "race:libfontconfig.so\nrace:libpangoft2-1.0.so\nrace:libpango-1.0.so\nrace:libglib-2.0.so\n";
}
