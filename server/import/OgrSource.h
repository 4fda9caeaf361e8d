#pragma once

#include "import/ImportedLayer.h"

#include <QString>

#include <cstdint>
#include <memory>

class GDALDataset;
class OGRFeature;
class OGRGeometry;
class OGRLayer;
class OGRPolygon;
class OGRCoordinateTransformation;

namespace orbelan::server {

// Reads one layer of any vector source GDAL/OGR opens (GeoJSON, TopoJSON,
// Shapefile, GeoPackage ...) into longitude/latitude (WGS 84) elements.
// Field types become ADO codes: integer 3, 64-bit integer 20, real 5, string
// 202; dates and times travel as text (202), and so does anything else.
class OgrSource {
public:
    // Throws std::runtime_error when the source or the layer cannot be opened
    // or its coordinates cannot be transformed.
    OgrSource(const QString& path, const QString& layerName);
    ~OgrSource();
    OgrSource(const OgrSource&) = delete;
    OgrSource& operator=(const OgrSource&) = delete;

    ImportedLayer read();

    static std::int16_t adoType(int ogrFieldType);

private:
    void readFields(ImportedLayer& layer);
    void readFeature(OGRFeature& feature, ImportedLayer& layer);
    void addParts(const OGRGeometry& geometry, const StoredElement& attributes,
                  ImportedLayer& layer);
    void addPolarHoles(const OGRPolygon& polygon, const StoredElement& attributes,
                       ImportedLayer& layer);
    void addRing(std::vector<messages::WirePoint> points, const StoredElement& attributes,
                 ImportedLayer& layer);
    void addElement(std::vector<messages::WirePoint> points, const StoredElement& attributes,
                    ImportedLayer& layer);
    std::vector<QVariant> attributesOf(OGRFeature& feature) const;

    std::unique_ptr<GDALDataset, void (*)(GDALDataset*)> dataset_;
    OGRLayer* layer_ = nullptr;
    std::unique_ptr<OGRCoordinateTransformation, void (*)(OGRCoordinateTransformation*)> transform_;
};

} // namespace orbelan::server
