#include "batch.h"

#include "audio_file.h"
#include "batch_items.h"
#include "batch_report.h"
#include "file_render.h"
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
        , totalBytes (TotalBytes ())
        , progress (from.quiet ? 0 : totalBytes)
        , outcomes (items.size ())
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
        progress.Wipe ();
        if (options.json)
            Print (std::cout, ToJson (outcomes, options.dryRun));
        else if (!options.quiet)
            PrintOutcomes (std::cout, outcomes, options.dryRun);
        TellLeftOut (outcomes);
        return CountOf (outcomes, Fate::failed) == 0 ? 0 : 1;
    }

private:
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
        Outcome outcome{ .fate = Fate::rendered, .input = item.input };
        if (options.skipExisting && !item.isTaken && !item.output.empty () && fs::exists (item.output, ignored))
        {
            outcome.fate = Fate::present;
            return outcome;
        }
        Options single = options;
        single.input = item.input;
        single.output = item.output;
        single.quiet = true; // the bar is the batch's
        try
        {
            if (!item.fault.empty ())
                Refuse (item);
            CheckPaths (single);
            if (!options.dryRun)
                MakeFolder (item.output.parent_path ());
            outcome.summary = RenderFile (session, single);
        }
        catch (const NotAudio& error)
        {
            outcome.fate = IsNamedAsAudio (item.input) ? Fate::failed : Fate::noAudio;
            outcome.failure = error.what ();
        }
        catch (const std::exception& error)
        {
            outcome.fate = Fate::failed;
            outcome.failure = error.what ();
        }
        return outcome;
    }

    static void MakeFolder (const fs::path& folder)
    {
        std::error_code error;
        fs::create_directories (folder, error);
        if (error)
            throw RenderError ("the folder \"" + folder.string () + "\" cannot be made: " + error.message ());
    }

    /// What is no audio is told as such rather than as a fault.
    [[noreturn]] static void Refuse (const BatchItem& item)
    {
        if (fs::is_regular_file (item.input) && !IsNamedAsAudio (item.input))
            AudioReader (item.input, Damage::allow);
        throw RenderError (item.fault);
    }

    void Finish (const BatchItem& item, Outcome outcome)
    {
        const std::lock_guard one (lock);
        ++finished;
        bytesDone += item.bytes;
        if (outcome.summary)
            seconds += static_cast<double> (outcome.summary->result.frames) / outcome.summary->sampleRateHz;
        outcomes[static_cast<std::size_t> (&item - items.data ())] = std::move (outcome);
        progress.Update (bytesDone, Note ());
    }

    /// As ", 12 of 40 files, 700 times real time, 95 s left".
    std::string Note () const
    {
        const double elapsed = std::chrono::duration<double> (std::chrono::steady_clock::now () - start).count ();
        const auto bytesLeft = static_cast<double> (totalBytes - bytesDone);
        const double left = bytesDone > 0 ? elapsed * bytesLeft / static_cast<double> (bytesDone) : 0.0;
        return ", " + std::to_string (finished) + " of " + std::to_string (items.size ()) + " files, " +
               ToText (seconds / elapsed, 0) + " times real time, " + ToText (left, 0) + " s left";
    }

    RenderSession& session; // not owned: the caller's
    const Options& options; // not owned: the caller's
    const std::vector<BatchItem> items;
    const std::int64_t totalBytes;
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now ();

    std::mutex lock; // over all that follows
    Progress progress;
    std::exception_ptr stopped; // an interrupt; the other threads end with the file that they have
    std::size_t next = 0;
    std::size_t finished = 0;
    std::int64_t bytesDone = 0;
    double seconds = 0.0;          // of results
    std::vector<Outcome> outcomes; // as many as items, in their order
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
