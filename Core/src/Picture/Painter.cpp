#include "Painter.h"

#include "ImageSurface.h"
#include "Utf8.h"

#include "Data/LabelGraphics.h"

#include <algorithm>
#include <cmath>

namespace keo::Picture::detail {

namespace {

// Placeholder size of an image that cannot be read and has no size of its own, pixels.
constexpr double PLACEHOLDER_SIZE = 24.0;

bool isFinite(const Point2& point) noexcept {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool allFinite(const std::vector<Point2>& points) noexcept {
    return std::all_of(points.begin(), points.end(), [](const Point2& p) { return isFinite(p); });
}

bool isVisible(const Color& color) noexcept {
    return color.a > 0.0f;
}

// The left edge and the top of a box of @p width and @p height placed on @p anchor.
Point2 boxCorner(const Point2& anchor, double width, double height, HorizontalOrigin horizontal,
                 VerticalOrigin vertical) noexcept {
    const double left = horizontal == HorizontalOrigin::Left    ? anchor.x
                        : horizontal == HorizontalOrigin::Right ? anchor.x - width
                                                                : anchor.x - width / 2.0;
    const double top = vertical == VerticalOrigin::Top      ? anchor.y
                       : vertical == VerticalOrigin::Center ? anchor.y - height / 2.0
                                                            : anchor.y - height;
    return {left, top};
}

} // namespace

void setColor(cairo_t* cr, const Color& color, double alpha) noexcept {
    const auto unit = [](float value) {
        return std::isnan(value) ? 0.0 : std::clamp(static_cast<double>(value), 0.0, 1.0);
    };
    cairo_set_source_rgba(cr, unit(color.r), unit(color.g), unit(color.b),
                          unit(color.a) * std::clamp(alpha, 0.0, 1.0));
}

void Painter::paint(const DrawList& list) {
    for (const auto& item : list.items()) {
        std::visit([this](const auto& shape) { paintShape(shape); }, item.shape);
    }
}

void Painter::selectFont(const std::string& family, double size) {
    if (family == fontFamily_ && size == fontSize_) {
        return;
    }
    fontFamily_ = family;
    fontSize_ = size;
    cairo_select_font_face(cr_, toValidUtf8(family).c_str(), CAIRO_FONT_SLANT_NORMAL,
                           CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr_, size);
    cairo_font_extents(cr_, &fontExtents_);
}

template <typename Draw>
void Painter::forEachRun(const std::string& text, Draw draw) {
    const std::vector<FontRuns::Run> runs = fontRuns_.split(fontFamily_, text);
    bool switched = false;
    for (const FontRuns::Run& run : runs) {
        if (run.family != fontFamily_ || switched) {
            cairo_select_font_face(cr_, toValidUtf8(run.family).c_str(), CAIRO_FONT_SLANT_NORMAL,
                                   CAIRO_FONT_WEIGHT_NORMAL);
            switched = true;
        }
        draw(run.text);
    }
    if (switched) {
        cairo_select_font_face(cr_, toValidUtf8(fontFamily_).c_str(), CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
    }
}

double Painter::textAdvance(const std::string& text) {
    double advance = 0.0;
    forEachRun(text, [this, &advance](const std::string& run) {
        cairo_text_extents_t extents;
        cairo_text_extents(cr_, run.c_str(), &extents);
        advance += extents.x_advance;
    });
    return advance;
}

void Painter::showText(const std::string& text) {
    forEachRun(text, [this](const std::string& run) { cairo_show_text(cr_, run.c_str()); });
}

void Painter::textPath(const std::string& text) {
    forEachRun(text, [this](const std::string& run) { cairo_text_path(cr_, run.c_str()); });
}

void Painter::tracePath(const std::vector<Point2>& points, bool closed) {
    cairo_new_path(cr_);
    for (const auto& point : points) {
        cairo_line_to(cr_, point.x, point.y);
    }
    if (closed) {
        cairo_close_path(cr_);
    }
}

void Painter::paintShape(const FillShape& shape) {
    cairo_new_path(cr_);
    for (const auto& ring : shape.rings) {
        if (!allFinite(ring)) {
            return;
        }
        cairo_new_sub_path(cr_);
        for (const auto& point : ring) {
            cairo_line_to(cr_, point.x, point.y);
        }
        cairo_close_path(cr_);
    }
    cairo_set_fill_rule(cr_, CAIRO_FILL_RULE_EVEN_ODD);
    if (isVisible(shape.fill)) {
        setColor(cr_, shape.fill);
        cairo_fill_preserve(cr_);
    }
    if (shape.outlineWidth > 0.0 && isVisible(shape.outline)) {
        setColor(cr_, shape.outline);
        cairo_set_line_width(cr_, shape.outlineWidth);
        cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke_preserve(cr_);
    }
    cairo_new_path(cr_);
}

void Painter::paintShape(const StrokeShape& shape) {
    if (shape.points.size() < 2 || !allFinite(shape.points) || !(shape.width > 0.0)) {
        return;
    }
    if (shape.look == LineLook::Arrow) {
        paintArrow(shape);
        return;
    }
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cr_,
                       shape.look == LineLook::Dash ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
    tracePath(shape.points, shape.closed);
    const auto strokeWith = [this](const Color& color, double width, double alpha) {
        setColor(cr_, color, alpha);
        cairo_set_line_width(cr_, width);
        cairo_stroke_preserve(cr_);
    };
    switch (shape.look) {
    case LineLook::Dash:
        if (isVisible(shape.second)) {
            strokeWith(shape.second, shape.width, 1.0);
        }
        cairo_set_dash(cr_, shape.dashes.data(), static_cast<int>(shape.dashes.size()), 0.0);
        strokeWith(shape.color, shape.width, 1.0);
        cairo_set_dash(cr_, nullptr, 0, 0.0);
        break;
    case LineLook::Glow:
        // A soft halo over the whole width, brighter towards a solid core.
        strokeWith(shape.color, shape.width, 0.3);
        strokeWith(shape.color, shape.width * (1.0 - shape.amount / 2.0), 0.5);
        strokeWith(shape.color, std::max(1.0, shape.width * (1.0 - shape.amount)), 1.0);
        break;
    case LineLook::Outline:
        strokeWith(shape.second, shape.width + 2.0 * shape.amount, 1.0);
        strokeWith(shape.color, shape.width, 1.0);
        break;
    default:
        strokeWith(shape.color, shape.width, 1.0);
        break;
    }
    cairo_new_path(cr_);
}

void Painter::paintArrow(const StrokeShape& shape) {
    std::vector<Point2> points = shape.points;
    const Point2 tip = points.back();
    // The last segment of some length gives the direction of the head.
    std::size_t i = points.size() - 1;
    while (i > 0 && std::hypot(tip.x - points[i - 1].x, tip.y - points[i - 1].y) < 1e-6) {
        --i;
    }
    const Point2 from = points[i == 0 ? 0 : i - 1];
    const double length = std::hypot(tip.x - from.x, tip.y - from.y);
    const double head = std::max(10.0, 3.0 * shape.width);
    const double ux = length > 0.0 ? (tip.x - from.x) / length : 1.0;
    const double uy = length > 0.0 ? (tip.y - from.y) / length : 0.0;
    const Point2 base{tip.x - ux * head, tip.y - uy * head};
    points.back() = base;
    setColor(cr_, shape.color);
    cairo_set_line_width(cr_, shape.width);
    cairo_set_line_cap(cr_, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
    tracePath(points, false);
    cairo_stroke(cr_);
    const double half = std::max(5.0, 1.5 * shape.width);
    cairo_move_to(cr_, tip.x, tip.y);
    cairo_line_to(cr_, base.x - uy * half, base.y + ux * half);
    cairo_line_to(cr_, base.x + uy * half, base.y - ux * half);
    cairo_close_path(cr_);
    cairo_fill(cr_);
}

void Painter::paintShape(const DotShape& shape) {
    if (!isFinite(shape.centre)) {
        return;
    }
    const double radius = shape.diameter / 2.0;
    if (shape.outlineWidth > 0.0) {
        setColor(cr_, shape.outline);
        cairo_arc(cr_, shape.centre.x, shape.centre.y, radius + shape.outlineWidth, 0.0,
                  2.0 * M_PI);
        cairo_fill(cr_);
    }
    setColor(cr_, shape.color);
    cairo_arc(cr_, shape.centre.x, shape.centre.y, radius, 0.0, 2.0 * M_PI);
    cairo_fill(cr_);
}

cairo_surface_t* Painter::imageOf(const ImageShape& shape) {
    if (shape.image != nullptr) {
        auto [it, added] = decoded_.try_emplace(shape.image);
        if (added) {
            it->second = surfaceOfImage(*shape.image);
        }
        return it->second.get();
    }
    auto [it, added] = files_.try_emplace(shape.uri);
    if (added) {
        it->second = surfaceOfPngFile(shape.uri);
    }
    return it->second.get();
}

void Painter::paintPlaceholder(double left, double top, double width, double height,
                               const Color& tint) {
    // A box with a cross: "an image belongs here".
    setColor(cr_, tint, 0.25);
    cairo_rectangle(cr_, left, top, width, height);
    cairo_fill_preserve(cr_);
    setColor(cr_, tint);
    cairo_set_line_width(cr_, 1.5);
    cairo_move_to(cr_, left, top);
    cairo_line_to(cr_, left + width, top + height);
    cairo_move_to(cr_, left + width, top);
    cairo_line_to(cr_, left, top + height);
    cairo_stroke(cr_);
}

void Painter::paintShape(const ImageShape& shape) {
    cairo_surface_t* surface = imageOf(shape);
    const double ownWidth =
        surface != nullptr ? cairo_image_surface_get_width(surface) : PLACEHOLDER_SIZE;
    const double ownHeight =
        surface != nullptr ? cairo_image_surface_get_height(surface) : PLACEHOLDER_SIZE;
    const double width = shape.width.value_or(ownWidth) * shape.scale;
    const double height = shape.height.value_or(ownHeight) * shape.scale;
    if (!(width > 0.0) || !(height > 0.0) || !isFinite(shape.anchor)) {
        return;
    }
    const Point2 corner = boxCorner(shape.anchor, width, height, shape.horizontal, shape.vertical);
    if (surface == nullptr) {
        paintPlaceholder(corner.x, corner.y, width, height, shape.tint);
        return;
    }
    cairo_save(cr_);
    cairo_translate(cr_, corner.x, corner.y);
    cairo_scale(cr_, width / ownWidth, height / ownHeight);
    cairo_set_source_surface(cr_, surface, 0.0, 0.0);
    cairo_pattern_set_filter(cairo_get_source(cr_), CAIRO_FILTER_NEAREST);
    cairo_paint_with_alpha(cr_, std::clamp(static_cast<double>(shape.tint.a), 0.0, 1.0));
    if (shape.tint.r < 1.0f || shape.tint.g < 1.0f || shape.tint.b < 1.0f) {
        // The colour multiplies the image's pixels, within the image's own shape.
        cairo_set_operator(cr_, CAIRO_OPERATOR_MULTIPLY);
        setColor(cr_, shape.tint.withAlpha(1.0f));
        cairo_mask_surface(cr_, surface, 0.0, 0.0);
    }
    cairo_restore(cr_);
}

void Painter::paintGlyphs(const LabelGraphics& label, const std::string& text) {
    const auto outlineWidth = static_cast<double>(label.getOutlineWidth());
    if (label.getStyle() == LabelStyle::Fill || !(outlineWidth > 0.0)) {
        setColor(cr_, label.getFillColor());
        showText(text);
        return;
    }
    textPath(text);
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
    setColor(cr_, label.getOutlineColor());
    if (label.getStyle() == LabelStyle::Outline) {
        cairo_set_line_width(cr_, outlineWidth);
        cairo_stroke(cr_);
        return;
    }
    // The outline rings the glyphs: stroked at twice its width, its inner half covered by the fill.
    cairo_set_line_width(cr_, 2.0 * outlineWidth);
    cairo_stroke_preserve(cr_);
    setColor(cr_, label.getFillColor());
    cairo_fill(cr_);
}

void Painter::paintShape(const TextShape& shape) {
    const LabelGraphics& label = *shape.label;
    if (!isFinite(shape.position)) {
        return;
    }
    selectFont(label.getFont(), static_cast<double>(label.getFontSize() * label.getScale()));
    const std::string text = toValidUtf8(label.getText());
    const double advance = textAdvance(text);
    const Point2 anchor{shape.position.x + static_cast<double>(label.getPixelOffset().x),
                        shape.position.y - static_cast<double>(label.getPixelOffset().y)};
    const double ascent = fontExtents_.ascent;
    const double descent = fontExtents_.descent;
    const bool onBaseline = label.getVerticalOrigin() == VerticalOrigin::Baseline;
    const Point2 corner =
        boxCorner(anchor, advance, ascent + descent, label.getHorizontalOrigin(),
                  onBaseline ? VerticalOrigin::Bottom : label.getVerticalOrigin());
    // Baseline: the anchor is on the baseline, not under the descenders.
    const double baseline = onBaseline ? anchor.y : corner.y + ascent;
    if (label.getShowBackground()) {
        const Vector4<float>& pad = label.getBackgroundPadding();
        setColor(cr_, label.getBackgroundColor());
        cairo_rectangle(cr_, corner.x - static_cast<double>(pad.x),
                        baseline - ascent - static_cast<double>(pad.y),
                        advance + static_cast<double>(pad.x + pad.z),
                        ascent + descent + static_cast<double>(pad.y + pad.w));
        cairo_fill(cr_);
    }
    cairo_move_to(cr_, corner.x, baseline);
    paintGlyphs(label, text);
    // The anchor: where the label is attached.
    cairo_new_path(cr_);
    cairo_arc(cr_, shape.position.x, shape.position.y, 2.0, 0.0, 2.0 * M_PI);
    setColor(cr_, label.getFillColor());
    cairo_fill(cr_);
}

void Painter::paintShape(const MarkShape& shape) {
    if (!isFinite(shape.centre)) {
        return;
    }
    const double r = shape.size / 2.0;
    const double x = shape.centre.x;
    const double y = shape.centre.y;
    setColor(cr_, shape.color);
    cairo_set_line_width(cr_, 1.5);
    if (shape.kind == MarkKind::Particles) {
        // A star of six spokes around a dot.
        for (int spoke = 0; spoke < 6; ++spoke) {
            const double angle = M_PI * spoke / 3.0;
            cairo_move_to(cr_, x + 0.3 * r * std::cos(angle), y + 0.3 * r * std::sin(angle));
            cairo_line_to(cr_, x + r * std::cos(angle), y + r * std::sin(angle));
        }
        cairo_stroke(cr_);
        cairo_arc(cr_, x, y, 0.2 * r, 0.0, 2.0 * M_PI);
        cairo_fill(cr_);
        return;
    }
    const double dashes[] = {3.0, 2.0};
    cairo_set_dash(cr_, dashes, 2, 0.0);
    cairo_rectangle(cr_, x - r, y - r, 2.0 * r, 2.0 * r);
    cairo_stroke(cr_);
    cairo_set_dash(cr_, nullptr, 0, 0.0);
    cairo_move_to(cr_, x - r, y - r);
    cairo_line_to(cr_, x + r, y + r);
    cairo_move_to(cr_, x + r, y - r);
    cairo_line_to(cr_, x - r, y + r);
    cairo_stroke(cr_);
}

} // namespace keo::Picture::detail
