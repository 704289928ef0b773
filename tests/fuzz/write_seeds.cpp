// Writes one good input for each fuzzer into CORPUS/<fuzzer>/seed.

#include "processor.h"
#include "strip.h"
#include <filesystem>
#include <fstream>

using namespace tessaly::fuzz;

namespace
{

void Write (const std::filesystem::path& folder, const std::string& bytes)
{
    std::filesystem::create_directories (folder);
    std::ofstream (folder / "seed", std::ios::binary) << bytes;
}

} // namespace

int main (int argc, char** argv)
{
    const std::filesystem::path corpus = argc > 1 ? argv[1] : "corpus";
    Write (corpus / "state_fuzzer", Processor ().Save ());
    Write (corpus / "state_tree_fuzzer", Strip ().Save ());
    Write (corpus / "key_point_block_fuzzer", "KPRD" + std::string (508, '\x01'));
    Write (corpus / "typed_text_fuzzer", "\x07 2.5k");
}
