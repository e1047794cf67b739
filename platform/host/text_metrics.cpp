#include "platform/host/text_metrics.h"

#include <list>

namespace platform::host {

namespace {

// 8 points
constexpr FontMetrics kTahoma8{
    13,
    7,
    6,
    3,
    {3,  3, 5, 8, 6, 12, 8, 3, 4, 4, 7, 9, 3, 4, 3, 4, 6, 6, 6, 6, 6, 6, 6, 6,  6, 6, 3, 4, 8, 8, 8, 5,
     10, 7, 7, 7, 7, 6,  6, 7, 8, 4, 5, 7, 6, 9, 8, 8, 6, 8, 7, 6, 7, 7, 7, 10, 6, 7, 7, 4, 4, 4, 8, 6,
     6,  7, 6, 6, 7, 7,  4, 7, 7, 3, 3, 6, 3, 9, 7, 6, 6, 7, 4, 5, 4, 7, 5, 8,  5, 5, 6, 5, 5, 5, 9},
    {3, 3, 6, 6, 6, 6, 5,  6, 5, 11, 6, 7, 8, 4, 10, 6, 5, 8, 6, 5, 6, 7, 7, 3, 6, 5, 5, 7, 11, 11, 11, 6,
     7, 7, 7, 7, 7, 7, 10, 7, 6, 6,  6, 6, 4, 4, 4,  4, 7, 8, 8, 8, 8, 8, 8, 8, 8, 7, 7, 7, 7,  7,  6,  6,
     7, 7, 7, 7, 7, 7, 10, 6, 7, 7,  7, 7, 3, 3, 3,  3, 6, 7, 6, 6, 6, 6, 6, 7, 6, 7, 7, 7, 7,  5,  6,  5}};

// 10 points
constexpr FontMetrics kTahoma10{
    16,
    8,
    7,
    3,
    {4,  5, 5, 9, 8, 13, 9, 3, 5, 5, 7, 9, 4, 5,  3, 5,  7, 7,  7, 7, 7, 7, 7, 7,  7, 7, 5, 4, 9, 9, 9, 6,
     12, 8, 8, 8, 9, 7,  7, 9, 9, 5, 6, 7, 6, 10, 9, 10, 8, 10, 8, 8, 8, 9, 8, 12, 8, 7, 8, 5, 5, 5, 9, 7,
     7,  7, 8, 7, 8, 8,  4, 8, 7, 3, 4, 6, 3, 11, 7, 8,  8, 8,  5, 7, 4, 7, 6, 10, 6, 6, 7, 7, 5, 7, 10},
    {4, 5, 8, 8, 7, 7, 5,  8, 8, 13, 7, 8, 10, 6, 13, 7, 7, 10, 6,  6,  7,  7,  8,  4, 8,  6, 7, 8, 13, 14, 13, 6,
     8, 8, 8, 7, 8, 8, 12, 8, 7, 7,  7, 7, 5,  5, 5,  5, 9, 9,  10, 10, 10, 10, 10, 9, 10, 9, 9, 9, 9,  7,  8,  8,
     7, 7, 7, 7, 7, 7, 13, 7, 8, 8,  8, 8, 3,  3, 3,  3, 8, 7,  8,  8,  8,  8,  8,  9, 8,  7, 7, 7, 7,  6,  8,  6}};

// a control's "System" of 11 and 13 pixels
constexpr FontMetrics kSansSerif13{
    13,
    5,
    6,
    0,
    {3,  3, 5, 7, 6, 8, 6, 2, 3, 3, 4, 6, 3, 3, 3, 5, 6, 6, 6, 6, 6, 6, 6, 6,  6, 6, 3, 3, 6, 6, 6, 6,
     11, 7, 7, 7, 8, 7, 6, 8, 8, 3, 5, 7, 6, 9, 8, 8, 7, 8, 8, 7, 7, 8, 7, 11, 7, 7, 7, 3, 5, 3, 6, 6,
     3,  6, 6, 6, 6, 6, 3, 6, 6, 2, 2, 6, 2, 8, 6, 6, 6, 6, 3, 5, 3, 6, 6, 8,  5, 5, 5, 4, 2, 4, 7},
    {3, 3, 6, 6, 6, 6, 2,  6, 3, 9, 4, 6, 6, 3, 8, 6, 4, 6, 3, 3, 3, 6, 6, 3, 3, 3, 4, 6, 8, 8, 8, 6,
     7, 7, 7, 7, 7, 7, 10, 7, 7, 7, 7, 7, 3, 3, 3, 3, 8, 8, 8, 8, 8, 8, 8, 6, 8, 8, 8, 8, 8, 7, 7, 6,
     6, 6, 6, 6, 6, 6, 10, 6, 6, 6, 6, 6, 2, 4, 4, 4, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 5, 6, 5}};

// of 15 pixels, bold
constexpr FontMetrics kSansSerif13Bold{
    13,
    6,
    7,
    0,
    {4,  4, 6, 8, 7, 9, 7, 3, 4, 4, 5, 7, 4, 4,  4, 6, 7, 7, 7, 7, 7, 7, 7, 7,  7, 7, 4, 4, 7, 7, 7, 7,
     12, 8, 8, 8, 9, 8, 7, 9, 9, 4, 6, 8, 7, 10, 9, 9, 8, 9, 9, 8, 8, 9, 8, 12, 8, 8, 8, 4, 6, 4, 7, 7,
     4,  7, 7, 7, 7, 7, 4, 7, 7, 3, 3, 7, 3, 9,  7, 7, 7, 7, 4, 6, 4, 7, 7, 9,  6, 6, 6, 5, 3, 5, 8},
    {4, 4, 7, 7, 7, 7, 3,  7, 4, 10, 5, 7, 7, 4, 9, 7, 5, 7, 4, 4, 4, 7, 7, 4, 4, 4, 5, 7, 9, 9, 9, 7,
     8, 8, 8, 8, 8, 8, 11, 8, 8, 8,  8, 8, 4, 4, 4, 4, 9, 9, 9, 9, 9, 9, 9, 7, 9, 9, 9, 9, 9, 8, 8, 7,
     7, 7, 7, 7, 7, 7, 11, 7, 7, 7,  7, 7, 3, 5, 5, 5, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 6, 7, 6}};

// of 20 pixels, bold
constexpr FontMetrics kSansSerif20Bold{
    20,
    9,
    10,
    0,
    {5,  5,  7,  10, 10, 15, 12, 4,  6,  6,  7,  10, 5,  6,  5,  5,  10, 10, 10, 10, 10, 10, 10, 10,
     10, 10, 5,  5,  10, 10, 10, 10, 17, 12, 12, 12, 13, 12, 11, 14, 13, 6,  9,  11, 10, 14, 12, 13,
     11, 13, 13, 12, 10, 13, 12, 16, 12, 12, 11, 5,  5,  5,  8,  10, 6,  10, 10, 9,  10, 10, 6,  10,
     10, 4,  4,  9,  4,  14, 10, 10, 10, 10, 6,  9,  6,  10, 8,  12, 8,  8,  9,  6,  6,  6,  10},
    {5,  5,  10, 10, 10, 10, 6,  10, 6,  12, 7,  10, 10, 6,  12, 10, 6,  10, 6,  6,  6,  9,  9,  5,
     6,  6,  7,  10, 13, 13, 13, 10, 12, 12, 12, 12, 12, 12, 17, 12, 12, 12, 12, 12, 6,  6,  6,  6,
     13, 12, 13, 13, 13, 13, 13, 10, 13, 13, 13, 13, 13, 12, 11, 11, 10, 10, 10, 10, 10, 10, 16, 9,
     10, 10, 10, 10, 4,  4,  4,  4,  10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 8,  10, 8}};

// a window's font when none was set
constexpr FontMetrics kSystem{
    16,
    7,
    8,
    0,
    {4,  4, 6,  8, 8,  11, 9, 4,  4,  4, 6, 8, 4, 4,  4,  4,  8, 8,  8,  8, 8, 8,  8, 8,  8, 8,  4, 4, 8, 8, 8, 8,
     14, 8, 10, 9, 10, 9,  8, 10, 10, 4, 7, 9, 8, 12, 10, 10, 9, 10, 10, 9, 8, 10, 8, 14, 9, 10, 9, 4, 4, 4, 5, 8,
     5,  8, 8,  7, 8,  8,  4, 8,  8,  4, 4, 7, 4, 12, 8,  8,  8, 8,  5,  8, 4, 8,  8, 10, 8, 8,  8, 5, 4, 5, 5},
    {9, 4, 8, 8, 8, 8, 4,  8, 5, 10, 5, 7, 8, 4, 10, 8, 5,  8,  4,  4,  5,  8,  7,  4, 5,  4,  5,  7,  11, 11, 11, 8,
     8, 8, 8, 8, 8, 8, 13, 9, 9, 9,  9, 9, 4, 4, 4,  4, 10, 10, 10, 10, 10, 10, 10, 8, 10, 10, 10, 10, 10, 10, 9,  8,
     8, 8, 8, 8, 8, 8, 12, 7, 8, 8,  8, 8, 4, 4, 4,  4, 8,  8,  8,  8,  8,  8,  8,  6, 8,  8,  8,  8,  8,  8,  8,  8}};

// one size, whatever height is asked for
constexpr FontMetrics kCourier{
    13,
    8,
    8,
    0,
    {8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8,
     8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8,
     8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8},
    {8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8,
     8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8,
     8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8}};

struct FaceEntry {
  WideStringView face;
  int fromHeightPx;  // the entry with the greatest height that is not above the one asked for
  const FontMetrics* metrics;
};

// "System" is what controls get when they ask for it; nobody asks for others of its heights and weights.
constexpr FaceEntry kFaces[] = {
    {u"Tahoma", 0, &kTahoma8},          {u"Tahoma", 15, &kTahoma10},        {u"System", 0, &kSansSerif13},
    {u"System", 15, &kSansSerif13Bold}, {u"System", 20, &kSansSerif20Bold}, {u"Courier", 0, &kCourier},
};

constexpr WideStringView kSystemFace = u"System";

const FontMetrics& MetricsFor(WideStringView face, int heightPx) {
  const FontMetrics* found = &kSystem;
  for (const FaceEntry& entry : kFaces) {
    if (base::EqualsIgnoringCase(entry.face, face) && entry.fromHeightPx <= heightPx) found = entry.metrics;
  }
  return *found;
}

std::list<Font>& KnownFonts() {
  static std::list<Font> fonts;
  return fonts;
}

const Font& Known(WideStringView face, int heightPx, int weight, const FontMetrics& metrics) {
  for (const Font& font : KnownFonts()) {
    if (font.heightPx == heightPx && font.weight == weight && font.face == face) return font;
  }
  return KnownFonts().emplace_back(Font{WideString(face), heightPx, weight, &metrics});
}

}  // namespace

const Font& FontFor(WideStringView face, int heightPx, int weight) {
  return Known(face, heightPx, weight, MetricsFor(face, heightPx));
}

// Points measure the letters; a line is about a fifth higher. A dialog's "System" has one size.
const Font& FontForPoints(WideStringView face, int points) {
  if (base::EqualsIgnoringCase(face, kSystemFace)) return SystemFont();
  return FontFor(face, points * 96 * 6 / (72 * 5), 400);
}

const Font& SystemFont() {
  static const Font& font = Known(kSystemFace, 0, 400, kSystem);
  return font;
}

const Font* FontFromParam(WParam parameter) {
  for (const Font& font : KnownFonts()) {
    if (ToWParam(&font) == parameter) return &font;
  }
  return nullptr;
}

int WidthOf(const Font& font, WideStringView text) {
  const FontMetrics& metrics = *font.metrics;
  int width = 0;
  for (const char16_t unit : text) {
    if (unit >= 0x20 && unit < 0x7F) {
      width += metrics.ascii[unit - 0x20u];
    } else if (unit >= 0xA0 && unit <= 0xFF) {
      width += metrics.latin[unit - 0xA0u];
    } else {
      width += metrics.averageWidthPx;
    }
  }
  return width;
}

FrameWidths FrameOf(style::Bits style, style::Bits extendedStyle) {
  constexpr style::Bits kDialogFrame = style::kCaption & ~style::kBorder;
  const bool modalFrame = (extendedStyle & style::kExtendedModalFrame) != 0;
  int side = 0;
  if (modalFrame || (style & (style::kThickFrame | kDialogFrame)) != 0) side = 2;
  if ((style & style::kThickFrame) != 0) side += 1;
  if (modalFrame || (style & style::kCaption) != 0) side += 1;
  const bool caption = (style & style::kCaption) == style::kCaption;
  return {side, side + (caption ? kCaptionHeightPx : 0)};
}

}  // namespace platform::host
