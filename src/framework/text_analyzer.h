#pragma once

namespace tessaly
{

/// Reads what a user typed into a value field. IsValid takes the blanks out of the text, in place, and judges it;
/// ToValue is called with the text that IsValid left. Locale-free; editor's thread.
class ZTextAnalyzer
{
public:
    virtual ~ZTextAnalyzer () = default;
    virtual bool IsValid (char* text) = 0;
    virtual float ToValue (const char* text) = 0;
};

/// A number in the unit of the value, with one of the suffixes n, u, m, k, M (1e-9 to 1e6) or none.
class ZTextAnalyzerReal : public ZTextAnalyzer
{
public:
    bool IsValid (char* text) override;
    float ToValue (const char* text) override;
};

/// Takes the blanks out of a text, in place.
void RemoveBlanks (char* text);

} // namespace tessaly
