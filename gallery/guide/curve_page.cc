#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "gallery/catalogue_names.h"
#include "gallery/guide/curve_drawing.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"

namespace Brisel::Gallery {
namespace {

// The values that move the dots: one for each frame of a screen of 120 a second while they move.
constexpr int kFrames = 144;

std::string samples(const VLMBriselCurve& curve) {
  std::string values;
  for (int frame = 0; frame <= kFrames; ++frame) {
    if (frame > 0) values += ' ';
    values += decimal(curve.yForGivenX(static_cast<double>(frame) / kFrames), 4);
  }
  return values;
}

// What of a curve reaches highest: its end, or a handle.
CurveGraph graphOf(const NamedCurve& curve) {
  double highest = 1;
  for (const double y : {curve.startHandle.y, curve.endHandle.y})
    if (y > highest) highest = y;
  return CurveGraph(highest);
}

// A call as markup that is broken before its function and its arguments, where it is broken.
std::string breakable(std::string_view call) {
  std::string markup;
  for (std::size_t i = 0; i < call.size(); ++i) {
    markup += escapeHtml(call.substr(i, 1));
    if (call[i] == '(' || call.substr(0, i + 1).ends_with("::")) markup += "<wbr>";
  }
  return markup;
}

class CurvePage {
 public:
  explicit CurvePage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "curves.html";
    page_.name = "Curves";
    page_.contents = {{"timing", "Timing"}, {"tangents", "Points and handles"}, {"part", "Part of a curve"}};
  }

  Page make() && {
    name("timing", "VLMBriselCurve");
    name("timing", "VLMBriselCubicBezierCurve");
    name("timing", "VLMBriselCubicBezierCurve::initWithStartHandle");
    name("timing", "VLMBriselCubicBezierCurve::yForGivenX");
    name("tangents", "VLMBriselCubicBezierCurve::positionAndHandleAt");
    name("part", "VLMBriselCubicBezierCurve::subCurveFromStartT");
    std::string curves;
    for (const NamedCurve& curve : namedCurves()) curves += timing(curve);
    std::string tangents;
    for (const double t : {0.25, 0.5, 0.75}) tangents += tangent(t);
    page_.markup =
        fillTemplate(siteFile("curves.html"), {{"curves", curves}, {"tangents", tangents}, {"part", part()}});
    return std::move(page_);
  }

 private:
  void name(std::string_view fragment, std::string_view code) {
    page_.items.push_back({std::string(fragment), "curve", {}, {std::string(code)}});
  }

  std::string timing(const NamedCurve& named) {
    const std::string id(named.id);
    const std::shared_ptr<const VLMBriselCubicBezierCurve> curve = named.make();
    const CurveGraph graph = graphOf(named);
    const Picture picture =
        pictures_.add("pictures/curves/" + id, graph.sizeWithRail(), [curve, graph](Platform::Canvas& canvas) {
          graph.paintGround(canvas);
          graph.paintSampledCurve(canvas, *curve);
          graph.paintRail(canvas, *curve);
        });
    page_.items.push_back({id, named.value(), {}, {named.code(), std::string(named.title)}});
    return fillTemplate(siteFile("curve.html"), {{"id", id},
                                                 {"title", named.title},
                                                 {"samples", samples(*curve)},
                                                 {"image", picture.attributes()},
                                                 {"code", breakable(named.code())},
                                                 {"value", named.value()}});
  }

  // A picture of the curve that all the rest is shown on.
  std::string specimen(const std::string& path, std::string_view title, std::string_view code,
                       const PictureBook::Paint& paint) {
    const Picture picture = pictures_.add("pictures/curves/" + path, CurveGraph().size(), paint);
    const std::string call = code.empty() ? "" : fillTemplate(siteFile("shape_code.html"), {{"code", code}});
    return fillTemplate(siteFile("shape_specimen.html"),
                        {{"title", title}, {"image", picture.attributes()}, {"code", call}});
  }

  std::string tangent(double t) {
    const std::string number = decimal(t);
    const auto paint = [curve = shown(), t](Platform::Canvas& canvas) {
      const CurveGraph graph;
      graph.paintGround(canvas);
      graph.paintCurve(canvas, *curve);
      graph.paintTangent(canvas, *curve, t);
    };
    return specimen("tangent-" + number, "At t = " + number, "curve->positionAndHandleAt(" + number + ")", paint);
  }

  std::string part() {
    const auto whole = [curve = shown()](Platform::Canvas& canvas) {
      const CurveGraph graph;
      graph.paintGround(canvas);
      graph.paintCurve(canvas, *curve);
      graph.paintPart(canvas, *curve, 0.2, 0.8);
    };
    const auto result = [curve = shown()->subCurveFromStartT(0.2, 0.8)](Platform::Canvas& canvas) {
      const CurveGraph graph;
      graph.paintGround(canvas);
      graph.paintSampledCurve(canvas, *curve);
    };
    return specimen("part", "From t = 0.2 to t = 0.8", "", whole) +
           specimen("sub-curve", "What is returned: a straight line", "curve->subCurveFromStartT(0.2, 0.8)", result);
  }

  static std::shared_ptr<const VLMBriselCubicBezierCurve> shown() {
    return VLMBriselCubicBezierCurve::initWithStartHandle({0.42, 0}, {0.58, 1});
  }

  PictureBook& pictures_;
  Page page_;
};

}  // namespace

Page makeCurvePage(PictureBook& pictures) { return CurvePage(pictures).make(); }

}  // namespace Brisel::Gallery
