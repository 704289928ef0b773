// Only in a module that brings its own C++ library.

namespace __gnu_cxx
{

void __freeres ();

} // namespace __gnu_cxx

namespace tessaly
{

namespace
{

/// The C++ library sets 72 kB aside for exceptions that find no memory, and counts on the end of the process to give
/// them back. The module's own copy comes with every load of the module, and hosts load and unload it at each scan.
[[gnu::destructor]] void FreeExceptionPool ()
{
    __gnu_cxx::__freeres ();
}

} // namespace

} // namespace tessaly
