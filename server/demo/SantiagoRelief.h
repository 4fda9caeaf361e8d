#pragma once

#include <string>

namespace orbelan::server {

// The shaded relief under the Santiago streets, the demo's image layer: a
// made-up terrain (the valley floor rising to the Andes in the east, a few
// hills, a river bed), lit from the north-west and tinted by height, half
// transparent so that the parcels show through. It is written as a tiled,
// compressed GeoTIFF with overviews, placed in the map's plane (UTM zone 19
// south as the viewer computes it) over the geographic box it is given.
class SantiagoRelief {
public:
    // The image layer's name, which is also the file's name in the viewer's ImagePath.
    static constexpr const char* kFileName = "relieve_santiago.tif";
    static constexpr int kLongestSide = 2000;

    // Writes the image of the box (degrees), longestSide pixels along its
    // longer side, to path; std::runtime_error when GDAL cannot.
    static void write(const std::string& path, double west, double south, double east, double north,
                      int longestSide = kLongestSide);
};

} // namespace orbelan::server
