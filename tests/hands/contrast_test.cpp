// What is written can be read and what is drawn can be seen, also by eyes that see no colours.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <QTransform>
#include <QXmlStreamReader>
#include <algorithm>
#include <functional>
#include <map>

#include "all_forms.h"
#include "core/loops/loop_track.h"
#include "parameters/wires.h"
#include "performance/pad/pad_tables.h"
#include "performance/selection/bands.h"
#include "performance/tabs.h"
#include "whole_hand.h"
#include "window/controls/pattern_graph.h"
#include "window/toolkit/theme.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::WholeHand;
using testing::IsEmpty;

constexpr double kTextContrast = 4.5;
constexpr double kShapeContrast = 3;

struct Named {
    const char* Name;
    QColor Colour;
};

const std::vector<Named> kGrounds{
    {"window", theme::kWindow},           {"panel", theme::kPanel}, {"raised", theme::kRaised},
    {"lifted", theme::kLifted},           {"sunk", theme::kSunk},   {"green ground", theme::kGreenGround},
    {"amber ground", theme::kAmberGround}};

TEST(ThemeContrast, TextsAreReadOnEveryGround) {
    for (const Named& ground : kGrounds) {
        EXPECT_GE(theme::Contrast(theme::kText, ground.Colour), kTextContrast) << ground.Name;
    }
    // Faces are lighter under the pointer and darker while they are pressed.
    for (const QColor& ground : {theme::kLifted, theme::kRaised.lighter(118), theme::kRaised.darker(118)}) {
        EXPECT_GE(theme::Contrast(theme::kQuiet, ground), kTextContrast) << ground.name().toStdString();
    }
    for (const QColor& ground : {theme::kWindow, theme::kPanel, theme::kRaised, theme::kSunk}) {
        EXPECT_GE(theme::Contrast(theme::kQuiet, ground), kTextContrast) << ground.name().toStdString();
        EXPECT_GE(theme::Contrast(theme::kAccent, ground), kTextContrast) << ground.name().toStdString();
        EXPECT_GE(theme::Contrast(theme::kGreen, ground), kTextContrast) << ground.name().toStdString();
    }
    EXPECT_GE(theme::Contrast(theme::kRed, theme::kWindow), kTextContrast);
    EXPECT_GE(theme::Contrast(theme::kWindow, theme::kAccent), kTextContrast);
}

TEST(ThemeContrast, ShapesAreSeenOnTheGroundsOfControls) {
    for (const QColor& ground : {theme::kWindow, theme::kPanel, theme::kRaised, theme::kSunk}) {
        const std::string name = ground.name().toStdString();
        for (const QColor& shape : {theme::kOff, theme::kPale, theme::kAccent, theme::kGreen, theme::kRed}) {
            EXPECT_GE(theme::Contrast(shape, ground), kShapeContrast) << shape.name().toStdString() << " on " << name;
        }
        for (Row row = 0; row < kRows; ++row) {
            EXPECT_GE(theme::Contrast(theme::RowEdge(row), ground), kShapeContrast) << row << " on " << name;
        }
    }
    for (Row row = 0; row < kRows; ++row) {
        const QColor colour = theme::RowColour(row);
        EXPECT_GE(theme::Contrast(theme::InkOn(colour), colour), kTextContrast) << row;
        EXPECT_GE(theme::Contrast(colour, theme::WaveGround(row)), kShapeContrast) << row;
    }
    for (int row = 0; row < kPatternRows; ++row) {
        EXPECT_GE(theme::Contrast(PatternColour(row), theme::kSunk), kShapeContrast) << row;
    }
}

TEST(ThemeContrast, EveryRuleOfTheStylesheetThatSetsTextAndGroundIsReadable) {
    const QRegularExpression rule(R"(([^{}]+)\{([^{}]*)\})");
    const QRegularExpression ink(R"((?:^|[;\s])color:\s*(#[0-9a-f]{6}))");
    const QRegularExpression ground(R"((?:^|[;\s-])background(?:-color)?:\s*(#[0-9a-f]{6}))");
    int pairs = 0;
    for (auto each = rule.globalMatch(qApp->styleSheet()); each.hasNext();) {
        const auto match = each.next();
        const auto text = ink.match(match.captured(2));
        const auto behind = ground.match(match.captured(2));
        if (!text.hasMatch() || !behind.hasMatch()) continue;
        ++pairs;
        EXPECT_GE(theme::Contrast(QColor(text.captured(1)), QColor(behind.captured(1))), kTextContrast)
            << match.captured(1).trimmed().toStdString();
    }
    EXPECT_GE(pairs, 12);
}

// What stands within a frame is seen by itself; the frame shows where the control is on its ground.
TEST(ThemeContrast, FramesShowTheShapesOfControlsOnTheirGrounds) {
    for (const QColor& ground : {theme::kWindow, theme::kPanel, theme::kSunk}) {
        EXPECT_GE(theme::Contrast(theme::kFrame, ground), kShapeContrast) << ground.name().toStdString();
    }
    const QRegularExpression rule(R"(([^{}]+)\{([^{}]*)\})");
    const QRegularExpression edge(R"(border(?:-color)?:[^;]*(#[0-9a-f]{6}))");
    int frames = 0;
    for (auto each = rule.globalMatch(qApp->styleSheet()); each.hasNext();) {
        const auto match = each.next();
        const QString what = match.captured(1).trimmed();
        // What is off may be quiet, a tool tip is no control, and lines of a heading only separate.
        const bool quiet = what.contains(":disabled") || what == "QToolTip" || what == "QHeaderView::section";
        const auto colour = edge.match(match.captured(2));
        // The handle of a slider and a chosen ring are bright themselves, with a dark edge.
        if (quiet || !colour.hasMatch() || colour.captured(1) == "#14161a") continue;
        ++frames;
        EXPECT_GE(theme::Contrast(QColor(colour.captured(1)), theme::kPanel), kShapeContrast) << what.toStdString();
    }
    EXPECT_GE(frames, 20);
}

/// A text that is painted, its colour and about where it stands.
struct PaintedText {
    QString Text;
    QColor Ink;
    QRectF Place;
};

std::vector<PaintedText> TextsOf(QWidget& form) {
    QBuffer drawing;
    QSvgGenerator pen;
    pen.setOutputDevice(&drawing);
    pen.setSize(form.size());
    {
        QPainter p(&pen);
        form.render(&p);
    }
    std::vector<PaintedText> texts;
    QTransform place;
    QXmlStreamReader reader(drawing.data());
    const QRegularExpression numbers(R"(matrix\(([^)]*)\))");
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        const QXmlStreamAttributes about = reader.attributes();
        if (reader.name() == QLatin1String("g")) {
            const QStringList m = numbers.match(about.value("transform").toString()).captured(1).split(',');
            if (m.size() == 6) {
                place = QTransform(m[0].toDouble(), m[1].toDouble(), m[2].toDouble(), m[3].toDouble(), m[4].toDouble(),
                                   m[5].toDouble());
            }
        }
        if (reader.name() != QLatin1String("text")) continue;
        QFont font;
        font.setFamily(about.value("font-family").toString());
        font.setPixelSize(std::max(1, static_cast<int>(about.value("font-size").toDouble())));
        const QPointF foot = place.map(QPointF(about.value("x").toDouble(), about.value("y").toDouble()));
        const QColor ink(about.value("fill").toString());
        const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
        if (text.isEmpty()) continue;
        const double height = font.pixelSize() * 0.72;
        texts.push_back(
            {text, ink, QRectF(foot.x(), foot.y() - height, QFontMetricsF(font).horizontalAdvance(text), height)});
    }
    return texts;
}

/// The colour that fills most of the place: letters take less of it than their ground.
QColor GroundAt(const QImage& picture, const QRectF& place) {
    std::map<QRgb, int> counts;
    const QRect inside = place.toAlignedRect().adjusted(-1, -2, 1, 2).intersected(picture.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) ++counts[picture.pixel(x, y)];
    }
    QRgb most = 0;
    int best = 0;
    for (const auto& [colour, count] : counts) {
        if (count > best) {
            best = count;
            most = colour;
        }
    }
    return QColor(most);
}

/// The texts of a form that are hard to read.
int FindFaint(const std::string& name, QWidget& form, std::vector<std::string>& faint) {
    const QImage picture = form.grab().toImage();
    int read = 0;
    for (const PaintedText& text : TextsOf(form)) {
        if (!QRectF(form.rect()).contains(text.Place.center())) continue;
        const QColor ground = GroundAt(picture, text.Place);
        const double contrast = theme::Contrast(text.Ink, ground);
        ++read;
        if (contrast >= kTextContrast) continue;
        faint.push_back(name + " '" + text.Text.toStdString() + "' " + text.Ink.name().toStdString() + " on " +
                        ground.name().toStdString() + ": " + std::to_string(contrast));
    }
    return read;
}

TEST(TextContrast, EveryTextOfTheMainWindowIsReadOnWhatIsBehindIt) {
    WholeHand hand;
    std::vector<std::string> faint;
    int read = 0;
    for (int tab = 0; tab < 7; ++tab) {
        hand.Begin();
        hand.s.ActiveTab = static_cast<std::int16_t>(std::min(tab, 3));
        hand.s.ActiveSubTab = static_cast<std::int16_t>(std::max(tab - 3, 0));
        hand.s.StatusText = "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute";
        hand.s.ReadoutText = "Vol: 320";
        hand.SoundGone = tab == 6;
        hand.Screen.ShowTab();
        hand.Settle();
        read += FindFaint("tab " + std::to_string(tab), *hand.Form, faint);
    }
    EXPECT_THAT(faint, IsEmpty());
    EXPECT_GT(read, 250);
}

TEST(TextContrast, EveryTextOfTheOtherFormsIsReadOnWhatIsBehindIt) {
    AllForms forms;
    std::vector<std::string> faint;
    int read = 0;
    forms.Each([&](const std::string& form, QWidget& window) {
        if (form == "frmMain") return;
        window.show();
        forms.Settle();
        read += FindFaint(form, window, faint);
        if (form != "frmBrowse") return;
        forms.OpenTab(3);
        forms.Settle();
        read += FindFaint(form, window, faint);
    });
    EXPECT_THAT(faint, IsEmpty());
    EXPECT_GT(read, 120);
}

/// Pixels whose brightness changes by three to one: a change of the colour alone is none.
int SeenWithoutColours(const QImage& one, const QImage& other) {
    int seen = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (theme::Contrast(one.pixelColor(x, y), other.pixelColor(x, y)) >= kShapeContrast) ++seen;
        }
    }
    return seen;
}

struct States : WholeHand {
    States() { Begin(); }
    QImage Picture(const char* name) {
        Reveal(Named(name));
        return Named(name).grab().toImage();
    }
    /// Expects that the pictures of all states differ without colours.
    void ExpectSeen(const char* name, int states, const std::function<void(int)>& set, int atLeast = 12) {
        std::vector<QImage> pictures;
        for (int state = 0; state < states; ++state) {
            set(state);
            pictures.push_back(Picture(name));
            for (int before = 0; before < state; ++before) {
                EXPECT_GE(SeenWithoutColours(pictures[static_cast<std::size_t>(before)], pictures.back()), atLeast)
                    << name << " " << before << " and " << state;
            }
        }
    }
};

TEST(ColourAlone, SaysNothing) {
    States stage;
    Session& s = stage.s;
    stage.ExpectSeen("Play_0", 3, [&](int state) {
        s.Run[0].Playing = ToBoolean(state == 1);
        s.Run[0].Paused = ToBoolean(state == 2);
    });
    for (const Row row : {Row{0}, Row{3}}) {
        const std::string index = std::to_string(row);
        stage.ExpectSeen(("Selected_" + index).c_str(), 2,
                         [&](int state) { s.Set[row].Selected = ToBoolean(state == 1); });
        stage.ExpectSeen(("Thumb_" + index).c_str(), 2, [&](int state) { s.CurrentLoop = state == 1 ? row : Row{1}; });
        stage.ExpectSeen(("Letr_" + index).c_str(), 2,
                         [&](int state) { s.Set[row].Thinnable = ToBoolean(state == 0); });
        stage.ExpectSeen(("PosBall_" + index).c_str(), 2, [&](int state) { s.BallHighlighted[row] = state == 1; });
    }
    stage.ExpectSeen("SelectorRadio_0", 2, [&](int state) { s.SelectionControlled = state == 1; });
    stage.ExpectSeen("LoopIt_0", 4, [&](int state) { s.Set[0].PlayMode = static_cast<std::int16_t>(state); });
    stage.ExpectSeen("ChannelFlag_0", 8, [&](int state) { s.Set[0].Channel = static_cast<std::uint8_t>(state + 1); });
    stage.ExpectSeen("Limiter", 4, [&](int state) { s.Limit = static_cast<std::int16_t>(state + 1); });
    stage.ExpectSeen("Bands", 3, [&](int state) {
        for (Row band = 0; band < kBands; ++band) SetBand(s, band, {});
        if (state > 0) SetBand(s, static_cast<Row>(state == 1 ? 0 : 3), {0, 1});
    });
}

/// The contrast of the brightest of the two outermost pixels in the middle of the side with the panel around.
double SideContrast(const QImage& picture, bool left) {
    const auto at = [&](int x) { return picture.pixelColor(left ? x : picture.width() - 1 - x, picture.height() / 2); };
    return std::max(theme::Contrast(at(0), theme::kPanel), theme::Contrast(at(1), theme::kPanel));
}

TEST(Frames, ShowWhereADrawnControlBeginsAndEnds) {
    States stage;
    stage.s.Set[1].Channel = 2;
    for (const char* name : {"Play_1", "LoopIt_1", "Thumb_1", "DropDown_1", "ChannelFlag_1", "SndDisp_1",
                             "SelectorRadio_3", "Limiter", "Bands", "PickDir_0", "PickFile_0", "PlayStop",
                             "TimeDigit_1", "NSteps", "PatternGraph_0", "PatternGraph_1", "Map", "Pad"}) {
        const QImage picture = stage.Picture(name);
        for (const bool left : {true, false}) EXPECT_GE(SideContrast(picture, left), kShapeContrast) << name << left;
    }
    // The round ones: enough of the edge is grey and neither the needle nor the label below.
    for (const char* name : {"VolKnob_1", "PanKnob_1", "HzKnob_1"}) {
        const QImage picture = stage.Picture(name);
        int edge = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height() - 14; ++y) {
                const QColor colour = picture.pixelColor(x, y);
                const double contrast = theme::Contrast(colour, theme::kPanel);
                if (colour.hsvSaturation() < 60 && contrast > 2.8 && contrast < 3.5) ++edge;
            }
        }
        EXPECT_GE(edge, 24) << name;
    }
}

TEST(Frames, AreQuietAroundWhatIsOff) {
    States stage;
    stage.Named("LoopIt_1").setEnabled(false);
    const double off = SideContrast(stage.Picture("LoopIt_1"), true);
    EXPECT_LT(off, kShapeContrast);
    EXPECT_GT(off, 1.1);
}

// The two pitches differ by a bar below the arrow; the list beside the pad names the type in words.
TEST(ColourAlone, DoesNotTellTheTypesOfThePadApart) {
    States stage;
    stage.ExpectSeen(
        "PadBall", 4, [&](int state) { stage.s.PadTypeIndex = static_cast<std::int16_t>(state); }, 5);
}

}  // namespace
}  // namespace marvolin
