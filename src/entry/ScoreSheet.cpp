#include "entry/ScoreSheet.h"

#include "runtime/TextForms.h"

#include <memory>
#include <utility>
#include <vector>

namespace tallybrook {

ScoreSheet::ScoreSheet(Screen& screen)
    : fraLineScore(screen, "fraLineScore"),
      lblFraNum("lblFraNum", 0, kFrames,
                [this](int index, const std::string& name) {
                    return std::make_unique<Label>(fraLineScore, name,
                                                   index == 0 ? "Total Score" : std::to_string(index));
                }),
      txtCount(
          "txtCount", 1, kFrames,
          [this](int index, const std::string& name) {
              return std::make_unique<TextBox>(
                  fraLineScore, name,
                  TextBoxOptions{
                      .maxLength = index == kFrames ? 3 : 2, .width = 4, .centred = true, .enabled = false});
          }),
      txtScore(
          "txtScore", 1, kFrames,
          [this](int index, const std::string& name) {
              return std::make_unique<TextBox>(
                  fraLineScore, name,
                  TextBoxOptions{
                      .maxLength = 3, .width = 4, .readOnly = true, .centred = true, .enabled = index <= 2});
          }),
      txtTotScore(fraLineScore, "txtTotScore",
                  {.maxLength = 3, .width = 4, .readOnly = true, .centred = true, .enabled = false}) {
    fraLineScore.setSpokenName("Score sheet");
    txtTotScore.setSpokenName("Total Score");
    for (int frame = 1; frame <= kFrames; ++frame) {
        txtCount(frame).setSpokenName("Frame " + std::to_string(frame) + ", pins");
        txtScore(frame).setSpokenName("Frame " + std::to_string(frame) + ", score");
        txtCount(frame).onChange = [this, frame] {
            cells_.at(static_cast<std::size_t>(frame - 1)) = txtCount(frame).text();
            if (onCell)
                onCell(frame);
        };
    }
}

const std::string& ScoreSheet::cell(Int16 frame) const {
    static_cast<void>(txtCount(frame));
    return cells_.at(static_cast<std::size_t>(frame.value() - 1));
}

void ScoreSheet::clear() {
    for (const auto& count : txtCount)
        count->setText("");
    for (const auto& score : txtScore)
        score->setText("");
}

void ScoreSheet::markFrame(const std::string& number) {
    for (int frame = 1; frame <= kFrames; ++frame)
        lblFraNum(frame).setLook(number == std::to_string(frame) ? LabelLook::Current : LabelLook::Plain);
}

void ScoreSheet::showScores(const std::array<Int16, kFrames>& scores) {
    for (int frame = 1; frame <= kFrames; ++frame)
        txtScore(frame).setText(text(scores.at(static_cast<std::size_t>(frame - 1))));
    txtTotScore.setText(text(scores.back()));
}

void ScoreSheet::clearScores() {
    for (const auto& score : txtScore)
        score->setText("");
    txtTotScore.setText("");
}

Layout ScoreSheet::layout() {
    std::vector<Layout> sheet;
    for (int frame = 1; frame <= kFrames; ++frame)
        sheet.emplace_back(Layout(lblFraNum(frame)).centred());
    sheet.emplace_back(Layout(lblFraNum(0)).centred());
    for (const auto& count : txtCount)
        sheet.emplace_back(*count);
    sheet.emplace_back(layout::space());
    for (const auto& score : txtScore)
        sheet.emplace_back(*score);
    sheet.emplace_back(txtTotScore);
    return layout::group(fraLineScore, layout::table(kFrames + 1, std::move(sheet)));
}

}  // namespace tallybrook
