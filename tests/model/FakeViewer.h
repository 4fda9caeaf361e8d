#pragma once

#include "GridCell.h"
#include "ParentMap.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

// A Viewer as the model sees it: a height, a scale, a few named images, and a
// record of the cells asked for.
class FakeViewer : public orbelan::ParentMap {
public:
    float scale = 1;
    std::map<std::string, std::int32_t, std::less<>> images;
    std::vector<orbelan::GridCell> requests;
    std::function<void()> onRequest;

    std::int32_t Height() const override { return 1000; }
    float DrawScale() const override { return scale; }
    std::int32_t ImageNumberOf(std::string_view name) const override
    {
        const auto found = images.find(name);
        return found == images.end() ? -1 : found->second;
    }
    void RequestCell(std::int32_t, std::int32_t row, std::int32_t column, std::string_view) override
    {
        requests.push_back({row, column});
        if (onRequest) {
            onRequest();
        }
    }
};
