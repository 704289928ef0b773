#include "batch.h"

#include "batch_items.h"
#include "interrupts.h"
#include "path_checks.h"
#include "progress.h"
#include "render_error.h"
#include "text.h"

#include <chrono>
#include <exception>
#include <iostream>
#include <mutex>
#include <numeric>
#include <thread>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

/// The files of a batch, handed to whichever thread is free, and what has become of them.
class Batch
{
public:
    Batch (RenderSession& with, const Options& from)
        : session (with)
        , options (from)
        , items (BatchItems (from))
        , progress (from.quiet ? 0 : TotalBytes ())
    {
    }

    /// Takes files until there are no more. Any thread.
    void Work ()
    {
        try
        {
            while (const BatchItem* item = Next ())
                Finish (*item, Render (*item));
        }
        catch (...)
        {
            const std::lock_guard one (lock);
            stopped = std::current_exception ();
        }
    }

    int Tell ()
    {
        if (stopped)
            std::rethrow_exception (stopped);
        if (!options.quiet)
            std::cout << rendered << " rendered, " << present << " there already, " << noAudio.size () << " no audio, "
                      << failures.size () << " failed\n";
        for (const auto& file : noAudio)
            std::cerr << "strip-render: no audio: \"" << file << "\"\n";
        for (const auto& failure : failures)
            std::cerr << "strip-render: failed: " << failure << '\n';
        return failures.empty () ? 0 : 1;
    }

private:
    enum class Fate
    {
        rendered,
        present,
        noAudio,
        failed
    };

    struct Outcome
    {
        Fate fate;
        double seconds = 0.0;
        std::string failure{};
    };

    std::int64_t TotalBytes () const
    {
        return std::accumulate (items.begin (), items.end (), std::int64_t{ 0 },
                                [] (std::int64_t sum, const BatchItem& item) { return sum + item.bytes; });
    }

    const BatchItem* Next ()
    {
        const std::lock_guard one (lock);
        return stopped || next == items.size () ? nullptr : &items[next++];
    }

    Outcome Render (const BatchItem& item)
    {
        std::error_code ignored;
        if (options.skipExisting && fs::exists (item.output, ignored))
            return { Fate::present };
        Options single = options;
        single.input = item.input;
        single.output = item.output;
        single.tellsSummary = false;
        single.quiet = true; // the bar is the batch's
        try
        {
            if (!item.fault.empty ())
                throw RenderError (item.fault);
            CheckPaths (single);
            fs::create_directories (item.output.parent_path (), ignored);
            return { Fate::rendered, RenderFile (session, single) };
        }
        catch (const NotAudio&)
        {
            return { Fate::noAudio };
        }
        catch (const std::exception& error)
        {
            return { Fate::failed, 0.0, "\"" + item.input.string () + "\": " + error.what () };
        }
    }

    void Finish (const BatchItem& item, const Outcome& outcome)
    {
        const std::lock_guard one (lock);
        ++finished;
        bytesDone += item.bytes;
        seconds += outcome.seconds;
        rendered += outcome.fate == Fate::rendered ? 1 : 0;
        present += outcome.fate == Fate::present ? 1 : 0;
        if (outcome.fate == Fate::noAudio)
            noAudio.push_back (item.input.string ());
        if (outcome.fate == Fate::failed)
            failures.push_back (outcome.failure);
        progress.Update (bytesDone, Note ());
    }

    /// As ", 12 of 40 files, 700 times real time, 95 s left".
    std::string Note () const
    {
        const double elapsed = std::chrono::duration<double> (std::chrono::steady_clock::now () - start).count ();
        const auto bytesLeft = static_cast<double> (TotalBytes () - bytesDone);
        const double left = bytesDone > 0 ? elapsed * bytesLeft / static_cast<double> (bytesDone) : 0.0;
        return ", " + std::to_string (finished) + " of " + std::to_string (items.size ()) + " files, " +
               ToText (seconds / elapsed, 0) + " times real time, " + ToText (left, 0) + " s left";
    }

    RenderSession& session; // not owned: the caller's
    const Options& options; // not owned: the caller's
    const std::vector<BatchItem> items;
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now ();

    std::mutex lock; // over all that follows
    Progress progress;
    std::exception_ptr stopped; // an interrupt; the other threads end with the file that they have
    std::size_t next = 0;
    std::size_t finished = 0;
    std::size_t rendered = 0;
    std::size_t present = 0;
    std::int64_t bytesDone = 0;
    double seconds = 0.0; // of results
    std::vector<std::string> noAudio;
    std::vector<std::string> failures;
};

} // namespace

int RenderBatch (RenderSession& session, const Options& options)
{
    Batch batch (session, options);
    {
        std::vector<std::jthread> threads;
        for (int i = 1; i < options.jobs; ++i)
            threads.emplace_back ([&batch] { batch.Work (); });
        batch.Work ();
    }
    return batch.Tell ();
}

} // namespace tessaly::render
