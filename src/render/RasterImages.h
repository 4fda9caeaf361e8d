#pragma once

#include "render/RasterSource.h"

#include <cstdint>
#include <map>
#include <memory>

namespace orbelan {

// The raster images a view holds, by number. A number, once given, stays
// taken: an image whose file was closed keeps its number with no image in it,
// so that its layer can open another file under the same number.
class RasterImages {
public:
    // The image under the next number (the highest so far plus one, from 1).
    std::int32_t add(std::unique_ptr<RasterSource> source);
    // Puts another image (or none) under a number already given.
    void replace(std::int32_t number, std::unique_ptr<RasterSource> source);
    // Closes every image; their numbers stay taken.
    void closeAll();
    // The open image under the number; null when there is none.
    const RasterSource* find(std::int32_t number) const;
    // True when the number was given, whether an image is open under it or not.
    bool exists(std::int32_t number) const { return sources_.contains(number); }

private:
    std::map<std::int32_t, std::unique_ptr<RasterSource>> sources_;
};

} // namespace orbelan
