#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <span>

// The lines of a report, read by what they begin with and never by their number: older and newer reports have
// fewer and more of them.
namespace tallybrook {

/// What stands behind a label; nothing where the label does not stand there.
using Field = std::optional<QStringView>;

/// What stands behind a label at the beginning of a text.
Field behind(QStringView label, QStringView text);

/// What stands behind a label at the beginning of one of a line's columns.
Field column(QStringView line, QStringView label, QStringView separator = u"\t");

/// A whole number that counts something: not below 0.
std::optional<int> countIn(const Field& field);

/// The text of a percentage without its sign, as in "33.3"; empty for anything else.
QString percentIn(const Field& field);

/// Takes the last word off a text.
QStringView takeLastWord(QStringView& text);

/// A line above a block of others, with hyphens below it.
struct Heading {
    QStringView text;
    qsizetype hyphens;         ///< as many as stand below it; 0 where there are none
    bool isBeginning = false;  ///< the line goes on behind the text
};

namespace heading {

constexpr Heading kScores{u"Game Statistics", 15};
constexpr Heading kSeries{u"Series Summary", 14};
constexpr Heading kStrikes{u"Strike / Spare Summary Statistics", 33};
constexpr Heading kSinglePins{u"Single Pin Spares", 17};
constexpr Heading kLeaves{u"Spare Statistics (based on ", 75, true};
constexpr Heading kSheet{u"Line Score:", 11};
constexpr Heading kFrames{u"Frame Summary", 13};
constexpr Heading kGame{u"----- Game Information (Game #", 0, true};

}  // namespace heading

/// Lines that stand below one another. A view: the lines are kept elsewhere.
class ReportLines {
public:
    ReportLines() = default;
    explicit ReportLines(std::span<const QStringView> lines) : lines_(lines) {}

    [[nodiscard]] auto begin() const { return lines_.begin(); }
    [[nodiscard]] auto end() const { return lines_.end(); }
    [[nodiscard]] std::size_t count() const { return lines_.size(); }
    [[nodiscard]] QStringView at(std::size_t index) const { return lines_[index]; }

    /// Whether a line is a heading, or its hyphens where the heading itself has been left out.
    [[nodiscard]] bool isAt(std::size_t index, const Heading& heading) const;
    /// What stands behind a label in a column of the first line that has it.
    [[nodiscard]] Field field(QStringView label) const;

    /// The lines from one to before another; both may lie beyond the last.
    [[nodiscard]] ReportLines between(std::size_t from, std::size_t to) const;
    /// The lines below a heading, up to the next heading of a report's large blocks. The last one counts,
    /// since what a bowler wrote stands before the figures. None where there is no such heading.
    [[nodiscard]] ReportLines below(const Heading& heading) const;
    /// The lines before the last that is a heading; all where there is none.
    [[nodiscard]] ReportLines above(const Heading& heading) const;
    /// The lines before the first that has another one of as many hyphens below it.
    [[nodiscard]] ReportLines beforeNextHeading() const;

private:
    [[nodiscard]] std::optional<std::size_t> last(const Heading& heading) const;
    [[nodiscard]] bool isBlockAt(std::size_t index) const;

    std::span<const QStringView> lines_;
};

}  // namespace tallybrook
