#include "Desktop.h"
#include "desktop/Dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <fstream>

namespace tallybrook::test {

class BoxTest : public Desktop {
protected:
    void pressInNext(Qt::Key key) {
        hands.expect([key](QDialog& box) { QTest::keyClick(&box, key); });
    }
    void closeNext() {
        hands.expect([](QDialog& box) { box.close(); });
    }
    static void clickButton(QDialog& window, QDialogButtonBox::StandardButton button) {
        QTest::mouseClick(window.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }
    std::optional<std::string> input(const InputBox& box) {
        std::optional<std::string> given;
        display.perform([&] { given = display.inputBox(box); });
        return given;
    }
    std::optional<std::filesystem::path> choose(const FileDialog& dialog) {
        std::optional<std::filesystem::path> file;
        display.perform([&] { file = display.fileDialog(dialog); });
        return file;
    }
};

TEST_F(BoxTest, ShowsWhatItIsTold) {
    hands.expect([this](QDialog& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.objectName(), "messageBox");
        EXPECT_EQ(box.windowTitle(), "Sure?");
        EXPECT_EQ(box.text(), "<b>Save</b> it?\nNow & here?");
        EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(box.parentWidget(), &this->window());
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_EQ(ask({.text = "<b>Save</b> it?\r\nNow & here?",
                   .title = "Sure?",
                   .buttons = Buttons::YesNo,
                   .icon = Icon::Question,
                   .preset = Answer::No}),
              Answer::Yes);
}

TEST_F(BoxTest, EveryButtonAnswers) {
    for (const Buttons buttons : {Buttons::OK, Buttons::OKCancel, Buttons::YesNo, Buttons::RetryCancel}) {
        for (const Answer answer : answersOf(buttons)) {
            answerNext(answer);
            EXPECT_EQ(ask({.text = "Well?", .buttons = buttons}), answer);
        }
    }
}

TEST_F(BoxTest, EveryIconIsItsOwn) {
    const std::vector<std::pair<Icon, QMessageBox::Icon>> icons{
        {Icon::None, QMessageBox::NoIcon},
        {Icon::Question, QMessageBox::Question},
        {Icon::Information, QMessageBox::Information},
        {Icon::Warning, QMessageBox::Warning},
        {Icon::Critical, QMessageBox::Critical},
    };
    for (const auto& [icon, shown] : icons)
        EXPECT_EQ(BoxWindow({.text = "Well?", .icon = icon}, nullptr).icon(), shown);
}

TEST_F(BoxTest, TextStandsBesideItsIcon) {
    BoxWindow box({.text = "Well?", .buttons = Buttons::YesNo, .icon = Icon::Question}, nullptr);
    box.resize(box.sizeHint());
    box.layout()->activate();
    const QLabel& icon = *box.findChild<QLabel*>("qt_msgboxex_icon_label");
    const QLabel& text = *box.findChild<QLabel*>("qt_msgbox_label");
    EXPECT_LT(text.geometry().left() - icon.geometry().right(), 40);
    EXPECT_NEAR(text.geometry().center().y(), icon.geometry().center().y(), 2);
    EXPECT_FALSE(icon.pixmap().isNull());
    for (const QAbstractButton* const button : box.buttons())
        EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
}

TEST_F(BoxTest, TextWithoutIconStandsAtTheEdge) {
    BoxWindow box({.text = "Well?", .buttons = Buttons::YesNo, .icon = Icon::None}, nullptr);
    box.resize(box.sizeHint());
    box.layout()->activate();
    const QRect text = box.findChild<QLabel*>("qt_msgbox_label")->geometry();
    const QRect buttons = box.findChild<QDialogButtonBox*>()->geometry();
    EXPECT_NEAR(text.left(), box.width() - buttons.right(), 8);
}

TEST_F(BoxTest, LongTextLeavesTheButtonsInSight) {
    hands.expect([](QDialog& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        QAbstractButton& no = *box.button(QMessageBox::No);
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
        EXPECT_TRUE(box.rect().contains({no.mapTo(&box, QPoint()), no.size()}));
        EXPECT_EQ(box.focusWidget(), &no);
        EXPECT_EQ(box.findChild<QPlainTextEdit*>()->toPlainText(), box.text());
        QTest::mouseClick(&no, Qt::LeftButton);
    });
    EXPECT_EQ(ask({.text = "Delete this event?\r\n" + std::string(1'000'000, 'n'),
                   .buttons = Buttons::YesNo,
                   .icon = Icon::Question,
                   .preset = Answer::No}),
              Answer::No);
}

TEST_F(BoxTest, ReturnPressesTheDefaultButton) {
    pressInNext(Qt::Key_Return);
    EXPECT_EQ(ask({.text = "Well?", .buttons = Buttons::OKCancel, .preset = Answer::Cancel}), Answer::Cancel);
    pressInNext(Qt::Key_Return);
    EXPECT_EQ(ask({.text = "Well?", .buttons = Buttons::YesNo}), Answer::Yes);
}

TEST_F(BoxTest, EscapeAndClosingCancel) {
    const std::vector<std::pair<Buttons, Answer>> answers{{Buttons::OK, Answer::OK},
                                                          {Buttons::OKCancel, Answer::Cancel},
                                                          {Buttons::RetryCancel, Answer::Cancel}};
    for (const auto& [buttons, answer] : answers) {
        pressInNext(Qt::Key_Escape);
        EXPECT_EQ(ask({.text = "Well?", .buttons = buttons}), answer);
        closeNext();
        EXPECT_EQ(ask({.text = "Well?", .buttons = buttons}), answer);
    }
}

TEST_F(BoxTest, YesOrNoMustBeAnswered) {
    hands.expect([](QDialog& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
        EXPECT_TRUE(box.isVisible());
        EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::mouseClick(dynamic_cast<QMessageBox&>(box).button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(ask({.text = "Well?", .buttons = Buttons::YesNo}), Answer::No);
}

TEST_F(BoxTest, WhatItIsAboutIsSeen) {
    hands.expect([this](QDialog& box) {
        EXPECT_EQ(widget<QLineEdit>(screen().txtName).text(), "wrong");
        EXPECT_EQ(window().focusWidget(), &widget(screen().cmdGo));
        box.close();
    });
    display.perform([this] {
        screen().txtName.setText("wrong");
        screen().cmdGo.focus();
        display.messageBox({.text = "That is wrong."});
    });
}

TEST_F(BoxTest, InputBoxGivesTheText) {
    hands.expect([](QDialog& window) {
        auto& box = dynamic_cast<QInputDialog&>(window);
        EXPECT_EQ(box.windowTitle(), "Question");
        const QLabel& label = *box.findChild<QLabel*>();
        EXPECT_EQ(label.text(), "<i>What</i> & why?\nNow?");
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_EQ(label.textInteractionFlags(), Qt::TextSelectableByMouse);
        EXPECT_FALSE(label.wordWrap());
        QTest::keyClicks(box.findChild<QLineEdit*>(), " forty-two ");
        clickButton(box, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(input({.text = "<i>What</i> & why?\r\nNow?", .title = "Question"}), " forty-two ");
}

TEST_F(BoxTest, InputBoxIsInSightWhateverItAsks) {
    for (const std::string& text :
         {std::string(5000, 'W'), std::string("Which is it? ") + std::string(600, 'i')}) {
        hands.expect([](QDialog& window) {
            EXPECT_LE(window.width(), window.screen()->availableSize().width());
            EXPECT_GE(window.width(), window.fontMetrics().averageCharWidth() * 60);
            window.reject();
        });
        EXPECT_EQ(input({.text = text, .title = "Name"}), std::nullopt);
    }
}

TEST_F(BoxTest, InputBoxCanBeCancelled) {
    hands.expect([](QDialog& window) { clickButton(window, QDialogButtonBox::Cancel); });
    EXPECT_EQ(input({.text = "What?"}), std::nullopt);
}

class FileDialogTest : public BoxTest {
protected:
    FileDialogTest() {
        std::filesystem::create_directory(files);
        std::ofstream(files / "night.txt") << "9/";
    }
    ~FileDialogTest() override { std::filesystem::current_path(before); }

    static void enter(QDialog& window, const QString& name, QDialogButtonBox::StandardButton button) {
        auto* const line = window.findChild<QLineEdit*>("fileNameEdit");
        line->setCompleter(nullptr);
        line->clear();
        QTest::keyClicks(line, name);
        clickButton(window, button);
    }

    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path files = folder.path() / "files";
};

TEST_F(FileDialogTest, OpensAFileAndMovesToItsFolder) {
    hands.expect([this](QDialog& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.windowTitle(), "Which File");
        EXPECT_EQ(dialog.directory().path().toStdString(), files.string());
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Text files (*.txt *.csv)", "All files (*.*)"}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        enter(dialog, "night.txt", QDialogButtonBox::Open);
    });
    EXPECT_EQ(choose({.title = "Which File",
                      .folder = files.string(),
                      .filter = "Text files | *.txt; .csv|All files (*.*)|*.*|Neither",
                      .name = ""}),
              files / "night.txt");
    EXPECT_EQ(std::filesystem::current_path(), files);
}

TEST_F(FileDialogTest, ItsListsAreReadAloudByTheirLabels) {
    hands.expect([](QDialog& window) {
        for (const auto& [label, list] :
             {std::pair{"lookInLabel", "lookInCombo"}, std::pair{"fileTypeLabel", "fileTypeCombo"}})
            EXPECT_EQ(window.findChild<QLabel*>(label)->buddy(), window.findChild<QComboBox*>(list)) << label;
        clickButton(window, QDialogButtonBox::Cancel);
    });
    choose({.title = "Which File", .folder = files.string(), .filter = "", .name = ""});
}

TEST_F(FileDialogTest, SavesUnderTheNameOffered) {
    hands.expect([](QDialog& window) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(window).acceptMode(), QFileDialog::AcceptSave);
        clickButton(window, QDialogButtonBox::Save);
    });
    EXPECT_EQ(choose({.purpose = FileDialog::Purpose::Save,
                      .title = "Save",
                      .folder = files.string(),
                      .filter = "Text files (*.txt)|*.txt",
                      .name = "new.txt"}),
              files / "new.txt");
}

TEST_F(FileDialogTest, ReplacesAFileWithoutAQuestion) {
    std::ofstream(files / "old.txt") << "old";
    // A question would be a second window, which nobody expects.
    hands.expect([](QDialog& window) { clickButton(window, QDialogButtonBox::Save); });
    EXPECT_EQ(choose({.purpose = FileDialog::Purpose::Save,
                      .title = "Save",
                      .folder = files.string(),
                      .filter = "Text files (*.txt)|*.txt",
                      .name = "old.txt"}),
              files / "old.txt");
}

TEST_F(FileDialogTest, CancelledGivesNothingAndMovesNowhere) {
    hands.expect([](QDialog& window) { clickButton(window, QDialogButtonBox::Cancel); });
    EXPECT_EQ(choose({.title = "Which File", .folder = files.string(), .filter = "", .name = ""}),
              std::nullopt);
    EXPECT_EQ(std::filesystem::current_path(), before);
}

}  // namespace tallybrook::test
