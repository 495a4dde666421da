#pragma once

#include "records/drawing.h"
#include "shape.h"

#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace zu::picture {

struct TextStyle;

/// A text that a linetype repeats along a line, without the linetype's scale.
struct LinetypeText {
    double at = 0.0; ///< Along the pattern.
    QString text;
    const TextStyle* style = nullptr;
    double height = 0.0;
    double turn = 0.0;      ///< Degrees.
    bool isUpright = false; ///< Turned from the x axis, not from the line.
    double along = 0.0;     ///< Its start from `at`, in the direction of the line.
    double aside = 0.0;
};

struct Linetype {
    std::vector<double> dashes; ///< As in Shape, without any scale; empty for continuous.
    std::vector<LinetypeText> texts;
    double length = 0.0;    ///< Of the pattern; 0 when there is nothing to repeat.
    bool hasShapes = false; ///< Of a shape font.
};

struct Layer {
    QString name;
    Colour colour;
    const Linetype* linetype = nullptr; ///< Null for continuous.
    int lineWeight = 25;
    bool isOff = false;
    bool isFrozen = false;
    bool isPlotted = true;
    std::uint64_t handle = 0;
};

struct TextStyle {
    QString font;    ///< File name or family, as the drawing has it.
    QString bigFont; ///< File name.
    QString family;  ///< Of an installed font; empty for the fallback.
    bool bold = false;
    bool italic = false;
    bool onGrid = false; ///< See TextRun.
    double width = 1.0;
    double oblique = 0.0;      ///< Degrees.
    double height = 0.0;       ///< 0 when texts have their own.
    int generation = 0;        ///< 2 backward, 4 upside down.
    bool isVertical = false;   ///< Letters stand below each other.
    bool turnsLetters = false; ///< Full-width letters lie on their left side, for vertical lines.
};

/// The tables of a drawing as a renderer uses them. Names are compared without regard to case.
class Styles {
public:
    static constexpr int kDefaultWeight = 25;

    explicit Styles(const Drawing& drawing);

    /// The layer with an undecoded name; one with the colour of missing layers when there is none.
    [[nodiscard]] const Layer& layer(std::string_view name) const;
    /// Null for continuous and unknown ones.
    [[nodiscard]] const Linetype* linetype(const QString& name) const;
    /// The default style for an unknown name.
    [[nodiscard]] const TextStyle& textStyle(const QString& name) const;
    [[nodiscard]] const TextStyle& textStyle(std::uint64_t handle) const;
    [[nodiscard]] double linetypeScale() const { return linetypeScale_; }

private:
    [[nodiscard]] const Layer& findLayer(std::string_view name) const;
    void readLinetypes(const Drawing& drawing);
    [[nodiscard]] Linetype readLinetype(const Records& records) const;
    void readLayers(const Drawing& drawing);
    void readTextStyles(const Drawing& drawing);

    const Drawing& drawing_;
    double linetypeScale_ = 1.0;
    std::map<QString, Linetype> linetypes_;
    std::map<QString, Layer> layers_;
    std::map<QString, TextStyle> textStyles_;
    std::unordered_map<std::uint64_t, const TextStyle*> stylesByHandle_;
    TextStyle defaultStyle_;
    mutable std::unordered_map<std::string_view, const Layer*> known_;
    mutable std::pair<std::string_view, const Layer*> last_; ///< Entities of a layer follow each other.
    mutable std::map<QString, Layer> missing_;
};

/// The colour of an entity or layer: the true colour (420) before the number. Nullopt when the records have
/// neither.
[[nodiscard]] std::optional<Colour> colourOf(const Records& records);
/// The same of the values; `rgb` is negative for none.
[[nodiscard]] std::optional<Colour> colourOf(int number, int rgb);

} // namespace zu::picture
