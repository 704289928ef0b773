// Writes one good input for each fuzzer into CORPUS/<fuzzer>/seed.

#include "instances.h"
#include <filesystem>
#include <fstream>

using namespace tessaly::fuzz;

int main (int argc, char** argv)
{
    const std::filesystem::path corpus = argc > 1 ? argv[1] : "corpus";
    const auto write = [&corpus] (const char* fuzzer, const std::string& bytes)
    {
        std::filesystem::create_directories (corpus / fuzzer);
        std::ofstream (corpus / fuzzer / "seed", std::ios::binary) << bytes;
    };
    write ("state_fuzzer", Processor ().Save ());
    write ("state_tree_fuzzer", Strip ().Save ());
    write ("key_point_file_fuzzer", "KPRD" + std::string (508, '\x01'));
    write ("typed_text_fuzzer", "\x07 2.5k");
}
