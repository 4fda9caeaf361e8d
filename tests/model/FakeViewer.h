#pragma once

#include "GridCell.h"
#include "ParentMap.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// A Viewer as the model sees it: a height, a scale, a few named images, and a
// record of the cells asked for.
class FakeViewer : public orbelan::ParentMap {
public:
    std::int32_t height = 1000;
    float scale = 1;
    std::map<std::string, std::int32_t, std::less<>> images;
    std::vector<orbelan::GridCell> requests;
    std::function<void()> onRequest;

    std::int32_t Height() const override { return height; }
    float DrawScale() const override { return scale; }
    std::int32_t ImageNumberOf(std::string_view imageName) const override
    {
        const auto found = images.find(imageName);
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
