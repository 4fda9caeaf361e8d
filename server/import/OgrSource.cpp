#include "import/OgrSource.h"

#include "import/AntimeridianCut.h"

#include "protocol/FieldTypes.h"

#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <QStringList>

#include <stdexcept>

namespace orbelan::server {

namespace {

void closeDataset(GDALDataset* dataset)
{
    GDALClose(dataset);
}

void destroyTransform(OGRCoordinateTransformation* transform)
{
    OGRCoordinateTransformation::DestroyCT(transform);
}

// 1 points, 2 lines, 4 polygons, 0 for anything else.
std::int16_t elementType(OGRwkbGeometryType type)
{
    switch (wkbFlatten(type)) {
    case wkbPoint:
    case wkbMultiPoint:
        return 1;
    case wkbLineString:
    case wkbMultiLineString:
        return 2;
    case wkbPolygon:
    case wkbMultiPolygon:
        return 4;
    default:
        return 0;
    }
}

std::vector<messages::WirePoint> pointsOf(const OGRSimpleCurve& curve)
{
    std::vector<messages::WirePoint> points;
    points.reserve(static_cast<std::size_t>(curve.getNumPoints()));
    for (int k = 0; k < curve.getNumPoints(); ++k) {
        points.push_back({curve.getX(k), curve.getY(k)});
    }
    return points;
}

// A field name that no earlier field has (case ignored) and that is not the
// attribute table's key.
QString uniqueName(const QString& wanted, const QStringList& taken)
{
    QString name = wanted.isEmpty() ? QStringLiteral("FIELD") : wanted;
    for (int suffix = 2; taken.contains(name, Qt::CaseInsensitive) ||
                         name.compare(u"element_id", Qt::CaseInsensitive) == 0;
         ++suffix) {
        name = wanted + QLatin1Char('_') + QString::number(suffix);
    }
    return name;
}

// Dates and times as ISO 8601 text: 2020-01-02, 13:45:00, 2020-01-02T13:45:00.
QString isoText(OGRFeature& feature, int field)
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
    float second = 0.0f;
    feature.GetFieldAsDateTime(field, &year, &month, &day, &hour, &minute, &second, &zone);
    const QString date = QStringLiteral("%1-%2-%3")
                             .arg(year, 4, 10, QLatin1Char('0'))
                             .arg(month, 2, 10, QLatin1Char('0'))
                             .arg(day, 2, 10, QLatin1Char('0'));
    const QString time = QStringLiteral("%1:%2:%3")
                             .arg(hour, 2, 10, QLatin1Char('0'))
                             .arg(minute, 2, 10, QLatin1Char('0'))
                             .arg(static_cast<int>(second), 2, 10, QLatin1Char('0'));
    switch (feature.GetFieldDefnRef(field)->GetType()) {
    case OFTDate:
        return date;
    case OFTTime:
        return time;
    default:
        return date + QLatin1Char('T') + time;
    }
}

} // namespace

OgrSource::OgrSource(const QString& path, const QString& layerName)
    : dataset_(nullptr, closeDataset),
      transform_(nullptr, destroyTransform)
{
    GDALAllRegister();
    dataset_.reset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!dataset_) {
        throw std::runtime_error("GDAL/OGR cannot open " + path.toStdString() + " as vector data");
    }
    layer_ = layerName.isEmpty() ? dataset_->GetLayer(0)
                                 : dataset_->GetLayerByName(layerName.toUtf8().constData());
    if (!layer_) {
        throw std::runtime_error("no layer " + layerName.toStdString() + " in " +
                                 path.toStdString());
    }
    if (const OGRSpatialReference* reference = layer_->GetSpatialRef()) {
        OGRSpatialReference from(*reference);
        from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRSpatialReference to;
        to.SetWellKnownGeogCS("WGS84");
        to.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        transform_.reset(OGRCreateCoordinateTransformation(&from, &to));
        if (!transform_) {
            throw std::runtime_error("cannot transform the coordinates of " + path.toStdString() +
                                     " to WGS 84");
        }
    }
}

OgrSource::~OgrSource() = default;

std::int16_t OgrSource::adoType(int ogrFieldType)
{
    switch (ogrFieldType) {
    case OFTInteger:
        return fieldtype::kInteger;
    case OFTInteger64:
        return fieldtype::kBigInteger;
    case OFTReal:
        return fieldtype::kDouble;
    default:
        return fieldtype::kVarChar;
    }
}

ImportedLayer OgrSource::read()
{
    ImportedLayer layer;
    layer.name = layer_->GetName();
    layer.type = elementType(layer_->GetGeomType());
    readFields(layer);
    layer_->ResetReading();
    while (OGRFeature* feature = layer_->GetNextFeature()) {
        const std::unique_ptr<OGRFeature, void (*)(OGRFeature*)> owned(feature,
                                                                       OGRFeature::DestroyFeature);
        readFeature(*feature, layer);
    }
    if (layer.elements.empty()) {
        throw std::runtime_error("layer " + layer.name + " holds no point, line or polygon");
    }
    return layer;
}

void OgrSource::readFields(ImportedLayer& layer)
{
    const OGRFeatureDefn* definition = layer_->GetLayerDefn();
    QStringList taken;
    for (int i = 0; i < definition->GetFieldCount(); ++i) {
        const OGRFieldDefn* field = definition->GetFieldDefn(i);
        taken << uniqueName(QString::fromUtf8(field->GetNameRef()), taken);
        layer.fields.push_back({taken.last().toStdString(), adoType(field->GetType())});
    }
}

void OgrSource::readFeature(OGRFeature& feature, ImportedLayer& layer)
{
    OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry && transform_ && geometry->transform(transform_.get()) != OGRERR_NONE) {
        throw std::runtime_error("feature " + std::to_string(feature.GetFID()) +
                                 " cannot be transformed to WGS 84");
    }
    if (geometry && layer.type == 0) {
        layer.type = elementType(geometry->getGeometryType());
    }
    const std::size_t before = layer.elements.size();
    const std::size_t cutBefore = layer.cutRings;
    if (geometry) {
        addParts(*geometry, StoredElement{0, {}, attributesOf(feature)}, layer);
    }
    if (layer.elements.size() == before) {
        ++layer.skippedFeatures;
    }
    if (layer.cutRings != cutBefore) {
        ++layer.cutFeatures;
    }
}

void OgrSource::addParts(const OGRGeometry& geometry, const StoredElement& attributes,
                         ImportedLayer& layer)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (type == wkbPoint && layer.type == 1) {
        const auto& point = static_cast<const OGRPoint&>(geometry);
        addElement({{point.getX(), point.getY()}}, attributes, layer);
    } else if (type == wkbLineString && layer.type == 2) {
        addElement(pointsOf(static_cast<const OGRSimpleCurve&>(geometry)), attributes, layer);
    } else if (type == wkbPolygon && layer.type == 4) {
        const auto& polygon = static_cast<const OGRPolygon&>(geometry);
        if (const OGRLinearRing* ring = polygon.getExteriorRing()) {
            addRing(pointsOf(*ring), attributes, layer);
            addPolarHoles(polygon, attributes, layer);
        }
    } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
        const auto& collection = static_cast<const OGRGeometryCollection&>(geometry);
        for (int part = 0; part < collection.getNumGeometries(); ++part) {
            addParts(*collection.getGeometryRef(part), attributes, layer);
        }
    }
}

// A hole that runs around a pole is, on the sphere, the edge of what the
// polygon holds beyond its outer ring (Antarctica drawn as the band between
// a circle at the pole and its coast): it becomes an element of its own,
// closed through the pole. Other holes are dropped and counted.
void OgrSource::addPolarHoles(const OGRPolygon& polygon, const StoredElement& attributes,
                              ImportedLayer& layer)
{
    for (int k = 0; k < polygon.getNumInteriorRings(); ++k) {
        std::vector<messages::WirePoint> points = pointsOf(*polygon.getInteriorRing(k));
        if (AntimeridianCut::aroundPole(points)) {
            addRing(std::move(points), attributes, layer);
        } else {
            ++layer.droppedHoles;
        }
    }
}

// A ring that crosses the antimeridian becomes one element per piece.
void OgrSource::addRing(std::vector<messages::WirePoint> points, const StoredElement& attributes,
                        ImportedLayer& layer)
{
    std::vector<Ring> pieces = AntimeridianCut::pieces(points);
    if (pieces.size() == 1 && pieces.front() == points) {
        addElement(std::move(points), attributes, layer);
        return;
    }
    ++layer.cutRings;
    for (Ring& piece : pieces) {
        addElement(std::move(piece), attributes, layer);
    }
}

void OgrSource::addElement(std::vector<messages::WirePoint> points, const StoredElement& attributes,
                           ImportedLayer& layer)
{
    if (points.empty()) {
        return;
    }
    const Extent box = Extent::of(points);
    if (layer.elements.empty()) {
        layer.extent = box;
    }
    layer.extent.unite(box);
    layer.vertexCount += points.size();
    layer.elements.push_back({static_cast<std::int32_t>(layer.elements.size() + 1),
                              std::move(points), attributes.attributes});
}

std::vector<QVariant> OgrSource::attributesOf(OGRFeature& feature) const
{
    std::vector<QVariant> values;
    for (int i = 0; i < feature.GetFieldCount(); ++i) {
        if (!feature.IsFieldSetAndNotNull(i)) {
            values.emplace_back();
            continue;
        }
        switch (feature.GetFieldDefnRef(i)->GetType()) {
        case OFTInteger:
            values.emplace_back(feature.GetFieldAsInteger(i));
            break;
        case OFTInteger64:
            values.emplace_back(static_cast<qlonglong>(feature.GetFieldAsInteger64(i)));
            break;
        case OFTReal:
            values.emplace_back(feature.GetFieldAsDouble(i));
            break;
        case OFTDate:
        case OFTTime:
        case OFTDateTime:
            values.emplace_back(isoText(feature, i));
            break;
        default:
            values.emplace_back(QString::fromUtf8(feature.GetFieldAsString(i)));
            break;
        }
    }
    return values;
}

} // namespace orbelan::server
