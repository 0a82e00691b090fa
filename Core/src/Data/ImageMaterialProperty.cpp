#include "Data/ImageMaterialProperty.h"

#include "Data/FieldList.h"

namespace keo {

ImageMaterialProperty::ImageMaterialProperty()
    : ImageMaterialProperty(ConstructorOptions{}) {}

ImageMaterialProperty::ImageMaterialProperty(const ConstructorOptions& options)
    : MaterialProperty(TYPE, options.color)
    , image_(options.image)
    , repeat_(options.repeat)
    , offset_(options.offset)
    , matrix_(options.matrix) {}

ImageMaterialProperty::~ImageMaterialProperty() = default;

void ImageMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    describeImage(fields, "image", image_);
    fields.add("repeat", repeat_);
    fields.add("offset", offset_);
    const auto row = [this](int r) {
        return "[" + FieldList::number(matrix_(r, 0)) + ", " + FieldList::number(matrix_(r, 1)) +
               "]";
    };
    fields.addJson("matrix", "[" + row(0) + ", " + row(1) + "]");
}

} // namespace keo
