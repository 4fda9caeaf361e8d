#pragma once

#include "storage/Database.h"
#include "import/ImportOptions.h"
#include "import/ImportedLayer.h"
#include "protocol/messages/LayerRecord.h"

#include <cstddef>
#include <cstdint>
#include <ostream>

namespace orbelan::server {

// Imports one layer of a GDAL/OGR source into a map, in one transaction: a
// failed import leaves the store as it was. The map is created when missing
// and its extent grows to cover the layer.
class LayerImporter {
public:
    // A text thematic field with at most this many distinct values gets one
    // class per value.
    static constexpr std::size_t kMaximumThemeClasses = 12;

    LayerImporter(Database& database, std::ostream& report);

    // Returns the new layer's id. Throws on a source that cannot be read, an
    // unknown label or theme field, or data the store refuses.
    std::int32_t import(const ImportOptions& options);

    // A square cell, in degrees, such that the cells holding the layer's
    // vertices hold a few hundred of them on average.
    static float cellSize(const ImportedLayer& layer);

private:
    messages::LayerRecord recordFor(const ImportedLayer& layer, const ImportOptions& options) const;
    void addThemeClasses(messages::LayerRecord& record, const ImportedLayer& layer) const;
    void write(const ImportedLayer& layer, messages::LayerRecord& record,
               const ImportOptions& options);

    Database& database_;
    std::ostream& report_;
};

} // namespace orbelan::server
