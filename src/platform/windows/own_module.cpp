#include "own_module.h"

namespace tessaly
{

HMODULE OwnModule ()
{
    HMODULE module = nullptr;
    GetModuleHandleExW (GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                        reinterpret_cast<LPCWSTR> (&OwnModule), &module);
    return module;
}

} // namespace tessaly
