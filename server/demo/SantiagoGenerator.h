#pragma once

#include "demo/DemoRandom.h"
#include "storage/MapWriter.h"
#include "demo/SantiagoGrid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace orbelan::server {

// Writes the generated city "Santiago" (UTM zone 19 south): street segments
// with address ranges on both sides and a one-way direction, labelled by
// street name; parcels with a land use shown as thematic classes and an
// area; named places of interest. The same seed gives the same map.
class SantiagoGenerator {
public:
    static constexpr std::int32_t kMapCode = 1;
    static constexpr std::int32_t kStreetsLayer = 101;
    static constexpr std::int32_t kParcelsLayer = 102;
    static constexpr std::int32_t kPlacesLayer = 103;
    // The shaded relief (SantiagoRelief), an image layer between the parcels and the streets.
    static constexpr std::int32_t kReliefLayer = 104;
    static constexpr int kPlaceCount = 1200;

    struct Counts {
        std::size_t streets = 0;
        std::size_t parcels = 0;
        std::size_t places = 0;
    };

    explicit SantiagoGenerator(MapWriter& writer);

    Counts build();
    // The map's extent in degrees: west, south, east, north.
    std::array<double, 4> extent() const;

private:
    void createMapAndLayers();
    void addEastWestStreets();
    void addNorthSouthStreets();
    void addStreet(const messages::WirePoint& from, const messages::WirePoint& to,
                   const std::string& name, int block, int direction);
    void addParcels();
    std::size_t chooseBlockUse(int i, int j);
    void addBlockParcels(int i, int j);
    void addPlaces();

    MapWriter& writer_;
    DemoRandom random_;
    SantiagoGrid grid_;
    Counts counts_;
};

} // namespace orbelan::server
