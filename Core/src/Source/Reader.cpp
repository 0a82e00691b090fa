#include "Source/Reader.h"

#include "FieldReader.h"
#include "GeometryReader.h"
#include "OgrSupport.h"
#include "ProblemSink.h"
#include "RingGeometry.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace keo::Source {

namespace {

using Issue = LoadReport::Issue;

constexpr double SQUARE_METRES_PER_SQUARE_KILOMETRE = 1e6;

/** What reading one layer needs besides the features: fields, id and name columns, reprojection. */
struct LayerPlan {
    OGRLayer* layer = nullptr;
    std::vector<Field> fields;
    int idIndex = -1;
    int nameIndex = -1;
    detail::TransformationPtr transformation;
};

std::string layerList(GDALDataset& dataset) {
    std::string names;
    for (OGRLayer* layer : dataset.GetLayers()) {
        names += (names.empty() ? "" : ", ") + std::string(layer->GetName());
    }
    return names.empty() ? "none" : names;
}

OGRLayer* findLayer(GDALDataset& dataset, const ReadOptions& options, const std::string& source,
                    LoadReport& report) {
    OGRLayer* layer = options.layer.empty()
                          ? (dataset.GetLayerCount() > 0 ? dataset.GetLayer(0) : nullptr)
                          : dataset.GetLayerByName(options.layer.c_str());
    if (layer == nullptr) {
        const std::string wanted =
            options.layer.empty() ? "no layer" : "no layer \"" + options.layer + "\"";
        report.fail(Issue::LayerMissing,
                    source + " has " + wanted + " (layers: " + layerList(dataset) + ")");
    }
    return layer;
}

bool findField(const std::vector<Field>& fields, const std::string& name, const char* role,
               const std::string& source, int& index, LoadReport& report) {
    index = -1;
    if (name.empty()) {
        return true;
    }
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&name](const Field& field) { return field.name == name; });
    if (found == fields.end()) {
        report.fail(Issue::FieldMissing, source + " has no field \"" + name + "\" for the " + role);
        return false;
    }
    index = static_cast<int>(found - fields.begin());
    return true;
}

bool planLayer(GDALDataset& dataset, const ReadOptions& options, const std::string& source,
               LoadReport& report, LayerPlan& plan) {
    plan.layer = findLayer(dataset, options, source, report);
    if (plan.layer == nullptr) {
        return false;
    }
    plan.fields = detail::fieldsOf(*plan.layer->GetLayerDefn());
    if (!findField(plan.fields, options.idField, "id", source, plan.idIndex, report) ||
        !findField(plan.fields, options.nameField, "name", source, plan.nameIndex, report)) {
        return false;
    }
    bool failed = false;
    plan.transformation = detail::transformationToWgs84(plan.layer->GetSpatialRef(), failed);
    if (failed) {
        report.fail(Issue::ReprojectionFailed,
                    source + ": no transformation to WGS84: " + detail::QuietErrors::lastMessage());
    }
    return !failed;
}

std::string featureName(std::size_t index, const std::optional<std::int64_t>& id) {
    std::string name = "feature " + std::to_string(index);
    return id ? name + " (id " + std::to_string(*id) + ")" : name;
}

double areaSquareKilometres(const RecordGeometry& geometry) {
    double area = 0.0;
    for (const PolygonRings& polygon : geometry.polygons) {
        area += detail::sphericalArea(polygon);
    }
    return area / SQUARE_METRES_PER_SQUARE_KILOMETRE;
}

void addArea(const std::string& field, Record& record) {
    keo::Feature::AttributeValue& value = record.attributes[field];
    value = {static_cast<std::int32_t>(AttributeType::Real), {}};
    if (record.geometry.kind == GeometryKind::Polygon) {
        value.value = areaSquareKilometres(record.geometry);
    }
}

void readFeature(OGRFeature& feature, const LayerPlan& plan, const ReadOptions& options,
                 std::size_t index, detail::ProblemSink& sink, RecordSet& set) {
    Record base;
    base.index = index;
    base.id = detail::readId(feature, plan.idIndex);
    base.name = detail::readName(feature, plan.nameIndex);
    const std::string where = featureName(index, base.id);
    OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry != nullptr && plan.transformation != nullptr &&
        geometry->transform(plan.transformation.get()) != OGRERR_NONE) {
        sink.problem(Issue::ReprojectionFailed,
                     where + ": cannot be reprojected to WGS84; it is skipped");
        return;
    }
    std::vector<RecordGeometry> geometries = detail::readGeometry(geometry, where, sink);
    if (geometries.empty()) {
        return;
    }
    detail::readAttributes(feature, plan.fields, base.attributes);
    for (std::size_t i = 0; i < geometries.size(); ++i) {
        Record record = i + 1 == geometries.size() ? std::move(base) : base;
        record.geometry = std::move(geometries[i]);
        if (!options.areaField.empty()) {
            addArea(options.areaField, record);
        }
        set.records.push_back(std::move(record));
    }
}

void readLayer(const LayerPlan& plan, const ReadOptions& options, LoadReport& report,
               RecordSet& set) {
    detail::ProblemSink sink(report, options.strict);
    plan.layer->ResetReading();
    // A count the driver knows without a pass of its own (-1 otherwise) sizes the records once.
    const GIntBig count = plan.layer->GetFeatureCount(FALSE);
    if (count > 0) {
        set.records.reserve(set.records.size() + static_cast<std::size_t>(count));
    }
    std::size_t index = 0;
    for (auto& feature : *plan.layer) {
        const std::size_t before = set.records.size();
        readFeature(*feature, plan, options, index++, sink, set);
        ++report.sourceFeatures;
        report.records += set.records.size() - before;
        report.skippedFeatures += set.records.size() == before ? 1U : 0U;
        if (sink.stopped()) {
            set.records.clear();
            return;
        }
    }
}

void addAreaField(const std::string& name, std::vector<Field>& fields) {
    if (name.empty()) {
        return;
    }
    fields.erase(std::remove_if(fields.begin(), fields.end(),
                                [&name](const Field& field) { return field.name == name; }),
                 fields.end());
    fields.push_back({name, AttributeType::Real});
}

RecordSet readPath(const std::string& path, const std::string& source, const ReadOptions& options,
                   LoadReport& report) {
    RecordSet set;
    const GDALDatasetUniquePtr dataset = detail::openVector(path);
    if (dataset == nullptr) {
        report.fail(Issue::FileUnreadable, "cannot open " + source + " as vector data: " +
                                               detail::QuietErrors::lastMessage());
        return set;
    }
    LayerPlan plan;
    if (!planLayer(*dataset, options, source, report, plan)) {
        return set;
    }
    set.fields = plan.fields;
    addAreaField(options.areaField, set.fields);
    readLayer(plan, options, report, set);
    return set;
}

} // namespace

RecordSet Reader::readFile(const std::string& path, const ReadOptions& options,
                           LoadReport& report) {
    detail::registerDrivers();
    const detail::QuietErrors quiet;
    return readPath(path, "\"" + path + "\"", options, report);
}

RecordSet Reader::readText(std::string_view text, const ReadOptions& options, LoadReport& report,
                           const std::string& extension) {
    detail::registerDrivers();
    const detail::QuietErrors quiet;
    const detail::MemoryFile file(text, extension);
    return readPath(file.path(), "the text", options, report);
}

} // namespace keo::Source
