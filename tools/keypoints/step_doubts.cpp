#include "step_doubts.h"

#include "set_file.h"

namespace tessaly::keypoints
{

std::vector<std::string> StepDoubts (const KeyPointSet& table, const Panel& panel)
{
    std::vector<std::string> doubts;
    for (std::uint32_t row = 0; row < kSetRows; ++row)
        for (std::uint32_t column = 0; table.HasKeyPoint (row) && column < kKeyPointColumns; ++column)
            if (const auto step = table.KeyPointStep (row, column); !panel.HasStep (column, step))
                doubts.push_back ("row " + std::to_string (row + 1) + ", \"" + panel.Name (column) + "\": step " +
                                  std::to_string (step) + " is beyond the parameter");
    return doubts;
}

} // namespace tessaly::keypoints
