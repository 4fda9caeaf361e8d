#include "render/RasterImages.h"

#include <stdexcept>
#include <string>

namespace orbelan {

std::int32_t RasterImages::add(std::unique_ptr<RasterSource> source)
{
    const std::int32_t number = sources_.empty() ? 1 : sources_.rbegin()->first + 1;
    sources_.emplace(number, std::move(source));
    return number;
}

void RasterImages::replace(std::int32_t number, std::unique_ptr<RasterSource> source)
{
    const auto found = sources_.find(number);
    if (found == sources_.end()) {
        throw std::out_of_range("no raster image number " + std::to_string(number));
    }
    found->second = std::move(source);
}

void RasterImages::closeAll()
{
    for (auto& [number, source] : sources_) {
        source.reset();
    }
}

const RasterSource* RasterImages::find(std::int32_t number) const
{
    const auto found = sources_.find(number);
    return found == sources_.end() ? nullptr : found->second.get();
}

} // namespace orbelan
