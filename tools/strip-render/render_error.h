#pragma once

#include <stdexcept>

namespace tessaly::render
{

/// What stops a render. The message is a sentence for people, without a full stop.
class RenderError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A mistake in the command line that only the plug-in could tell.
class MistakeInLine : public RenderError
{
public:
    using RenderError::RenderError;
};

/// A file that holds no audio at all.
class NotAudio : public RenderError
{
public:
    using RenderError::RenderError;
};

} // namespace tessaly::render
