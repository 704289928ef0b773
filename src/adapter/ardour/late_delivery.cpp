#include "late_delivery.h"

#include "late_points.h"
#include "public.sdk/source/main/moduleinit.h"
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tessaly::ardour
{

namespace
{

using namespace std::chrono_literals;

/// The thread and those it delivers to.
class Worker
{
public:
    ~Worker ()
    {
        {
            const std::scoped_lock lock (mutex);
            stops = true;
        }
        wake.notify_one ();
        thread.join ();
    }

    void Join (LatePoints& points)
    {
        const std::scoped_lock lock (mutex);
        if (std::find (members.begin (), members.end (), &points) == members.end ())
            members.push_back (&points);
    }
    /// @return whether others are left
    bool Leave (LatePoints& points)
    {
        const std::scoped_lock lock (mutex);
        std::erase (members, &points);
        return !members.empty ();
    }

private:
    void Run ()
    {
        std::unique_lock lock (mutex);
        while (!wake.wait_for (lock, 10ms, [this] { return stops; }))
            for (auto* points : members)
                points->Deliver ();
    }

    std::mutex mutex;
    std::condition_variable wake;
    bool stops = false;
    std::vector<LatePoints*> members;         // not owned: the instances'
    std::thread thread{ [this] { Run (); } }; // last: it uses all of the above
};

std::mutex mutex;         // guards `worker`; needs no destruction, like it: some hosts end instances from `exit`
Worker* worker = nullptr; // owned here, from the first Join to the last Leave

/// A host that unloads the module without having ended all instances.
[[maybe_unused]] const Steinberg::ModuleTerminator endsWithModule ([] { LateDelivery::End (); });

} // namespace

void LateDelivery::Join (LatePoints& points)
{
    const std::scoped_lock lock (mutex);
    if (worker == nullptr)
        worker = new Worker; // deleted by the last Leave, or End
    worker->Join (points);
}

void LateDelivery::Leave (LatePoints& points)
{
    const std::scoped_lock lock (mutex);
    if (worker != nullptr && !worker->Leave (points))
        delete std::exchange (worker, nullptr);
}

void LateDelivery::End ()
{
    const std::scoped_lock lock (mutex);
    delete std::exchange (worker, nullptr);
}

} // namespace tessaly::ardour
