// What the sanitizers find in the system's libraries when a program writes text, and is not ours: what fontconfig keeps
// for a thread of Pango's that looks up fonts, when the font map goes before that thread is done; and that thread's
// hand-over, whose locks ThreadSanitizer does not see. Compiled into each program: nobody takes it out of a library.
extern "C"
{
    __attribute__ ((visibility ("default"))) const char* __lsan_default_options ();
    __attribute__ ((visibility ("default"))) const char* __lsan_default_suppressions ();
    __attribute__ ((visibility ("default"))) const char* __tsan_default_suppressions ();
}

const char* __lsan_default_options ()
{
    return "print_suppressions=0";
}

const char* __lsan_default_suppressions ()
{
    return "leak:libfontconfig.so\n";
}

const char* __tsan_default_suppressions ()
{
    return "race:libfontconfig.so\nrace:libpangoft2-1.0.so\nrace:libpango-1.0.so\nrace:libglib-2.0.so\n";
}
