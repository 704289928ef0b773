#include "gdiplus_objects.h"

namespace tessaly
{

GdiplusSession::GdiplusSession ()
{
    Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup (&token, &input, nullptr) != Gdiplus::Ok)
        token = 0;
}

GdiplusSession::~GdiplusSession ()
{
    if (token != 0)
        Gdiplus::GdiplusShutdown (token);
}

} // namespace tessaly
