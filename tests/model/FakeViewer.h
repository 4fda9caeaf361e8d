#pragma once

#include "model/ParentMap.h"

#include <map>
#include <string>

// A map view as the model sees it: a height, a scale and a few named images.
class FakeViewer : public orbelan::ParentMap {
public:
    float scale = 1;
    std::map<std::string, std::int32_t, std::less<>> images;

    std::int32_t Height() const override { return 1000; }
    float DrawScale() const override { return scale; }
    std::int32_t ImageNumberOf(std::string_view name) const override
    {
        const auto found = images.find(name);
        return found == images.end() ? -1 : found->second;
    }
};

// A view for layers whose visibility does not depend on the scale.
inline const FakeViewer& anyView()
{
    static const FakeViewer view;
    return view;
}
