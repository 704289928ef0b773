#include "key_point_files.h"

#include <array>
#include <string>

namespace tessaly::soak
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kCollection = "Hollin/KPRD";
constexpr std::array kPlaces{ "", "Drums", "Voice", "Voice/too deep" };
constexpr std::array kNames{ "01 Basic.kpd", "a.KPD", "none", "\xC3\xA9.kpd", "\xFF.kpd", ".kpd", "b.kpd.txt" };
constexpr std::array<std::size_t, 6> kSizes{ 512, 512, 0, 3, 511, 70000 };

std::string Content (Chance& chance)
{
    std::string bytes (chance.Pick (kSizes), '\0');
    for (char& byte : bytes)
        byte = static_cast<char> (chance.Below (256));
    if (bytes.size () >= 4 && !chance.OneIn (4))
        bytes.replace (0, 4, "KPRD");
    return bytes;
}

} // namespace

KeyPointFiles::KeyPointFiles ()
    : userData ("XDG_DATA_HOME", folder.Path ().c_str ())
    , machineData ("XDG_DATA_DIRS", (folder / "machine").c_str ())
{
}

void KeyPointFiles::Change (Chance& chance)
{
    std::error_code ignored;
    if (chance.OneIn (8))
        fs::remove_all (folder / kCollection, ignored);
    for (std::size_t left = chance.Below (4); left > 0; --left)
    {
        std::string file = chance.OneIn (4) ? "machine/" : "";
        file.append (kCollection).append ("/");
        file.append (chance.Pick (kPlaces)).append ("/");
        file.append (chance.Pick (kNames));
        fs::create_directories ((folder / file).parent_path (), ignored);
        if (chance.OneIn (4))
            fs::remove_all (folder / file, ignored);
        else
            folder.Write (file, Content (chance));
    }
}

} // namespace tessaly::soak
