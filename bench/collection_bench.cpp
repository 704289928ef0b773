#include "channel_strip_storage.h"
#include "kprd_linux_collection_imp.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdlib.h>
#include <string>

// What a collection of key-point sets costs an instance that is being made: the storage reads it there.

namespace
{

namespace fs = std::filesystem;
using namespace tessaly;

/// A folder of sets, in ten folders of use, gone at the end.
class Sets
{
public:
    explicit Sets (std::int64_t count)
    {
        std::string pattern = (fs::temp_directory_path () / "tessaly-bench-XXXXXX").string ();
        path = mkdtemp (pattern.data ());
        for (std::int64_t i = 0; i < count; ++i)
        {
            const fs::path folder = path / ("use " + std::to_string (i % 10));
            fs::create_directory (folder);
            std::ofstream (folder / ("set " + std::to_string (i) + ".kpd")) << std::string (512, 'k');
        }
    }
    ~Sets () { fs::remove_all (path); }
    Sets (const Sets&) = delete;
    Sets& operator= (const Sets&) = delete;

    fs::path path;
};

void StorageWithSets (benchmark::State& state)
{
    const Sets sets (state.range (0));
    const auto makeBackEnd = [&]
    { return std::make_unique<KPRD_LinuxCollectionImp> (std::vector<fs::path>{ sets.path }); };
    for ([[maybe_unused]] auto iteration : state)
    {
        ZChannel_StripStorage storage (makeBackEnd);
        benchmark::DoNotOptimize (storage.Manager ()->FindByName ("none"));
    }
}

} // namespace

BENCHMARK (StorageWithSets)->Arg (0)->Arg (16)->Arg (1000)->Arg (10000)->Unit (benchmark::kMicrosecond);
