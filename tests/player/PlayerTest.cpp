#include "Rehearsal.h"
#include "Stages.h"
#include "player/ModelStage.h"
#include "player/PlayStopped.h"
#include "player/Player.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

const std::string kStart =
    "> start\n"
    "load frmOne\n"
    "show frmOne\n"
    "focus txtFirst\n";

/// Every command and every refusal, on one stage.
class PlayerTest : public testing::TestWithParam<std::string> {
protected:
    Outcome play(const std::string& script) {
        const std::unique_ptr<Stage> stage = makeStage(GetParam());
        return rehearse(*stage, script);
    }

    /// A script that begins by starting the program runs to its end and writes this after the start.
    void expectPlayed(const std::string& script, const std::string& transcript) {
        const Outcome outcome = play("start\n" + script);
        EXPECT_EQ(outcome.transcript, kStart + transcript);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_EQ(outcome.status, status::kPlayed);
    }

    /// A script that begins by starting the program stops with this message; its last lines are these.
    void expectStopped(const std::string& script, const std::string& message, const std::string& transcript,
                       int status = status::kNotCarriedOut) {
        const Outcome outcome = play("start\n" + script);
        EXPECT_EQ(outcome.transcript, kStart + transcript);
        EXPECT_EQ(outcome.errors, message + "\n");
        EXPECT_EQ(outcome.status, status);
    }
};

INSTANTIATE_TEST_SUITE_P(On, PlayerTest, testing::ValuesIn(kStages),
                         [](const auto& stage) { return stage.param; });

TEST_P(PlayerTest, AnEmptyScriptPlays) {
    const Outcome outcome = play("# nothing\n");
    EXPECT_EQ(outcome.transcript, "");
    EXPECT_EQ(outcome.status, status::kPlayed);
}

TEST_P(PlayerTest, StartsOnce) {
    expectPlayed("", "");
    expectStopped("start\n", "line 2: the program has been started before", "");
}

TEST_P(PlayerTest, NothingButNoteAndClockGoesBeforeTheStart) {
    EXPECT_EQ(play("note \"a\"\nclock \"2026-01-02 03:04:05\"\n").transcript,
              "> note \"a\"\n\"a\"\n> clock \"2026-01-02 03:04:05\"\n");
    for (const std::string command :
         {"click cmdTell", "type txtFirst \"a\"", "focus txtFirst", "tab", "backtab", "press \"F1\"",
          "pick lst \"a\"", "row grd 1", "close", "show txtFirst", "screens", "shot one"}) {
        const Outcome outcome = play(command);
        EXPECT_EQ(outcome.errors, "line 1: the program has not been started\n") << command;
        EXPECT_EQ(outcome.status, status::kNotCarriedOut);
    }
    EXPECT_EQ(play("answer Yes").errors, "line 1: no box is up\n");
    EXPECT_EQ(play("rows tblEventInfo").status, status::kNotCarriedOut);
}

TEST_P(PlayerTest, ACommandThatIsNoneStopsThePlay) {
    expectStopped("\n# so\njump\n", "line 4: there is no command \"jump\"", "");
    expectStopped("\"tab\"", "line 2: there is no command \"tab\"", "");
    expectStopped("note \"open", "line 2: a text has no closing quote", "");
}

TEST_P(PlayerTest, ArgumentsMustFit) {
    expectStopped("click", "line 2: the command is: click NAME", "");
    expectStopped("click cmdTell cmdAsk", "line 2: the command is: click NAME", "");
    expectStopped("click \"cmdTell\"", "line 2: the command is: click NAME", "");
    expectStopped("type txtFirst a", "line 2: the command is: type NAME \"TEXT\"", "");
    expectStopped("tab 2", "line 2: the command is: tab", "");
    expectStopped("show", "line 2: the command is: show NAME ...", "");
    expectStopped("pick txtFirst 1", "line 2: the command is: pick NAME \"TEXT\"|#N", "");
    expectStopped("pick txtFirst #x", "line 2: the command is: pick NAME \"TEXT\"|#N", "");
    expectStopped("row txtFirst 0", "line 2: the command is: row NAME N", "");
    expectStopped("row txtFirst \"1\"", "line 2: the command is: row NAME N", "");
    expectStopped("row txtFirst 1234567890", "line 2: the command is: row NAME N", "");
    expectStopped("choose it", "line 2: the command is: choose \"TEXT\"|cancel", "");
}

TEST_P(PlayerTest, AControlThatIsNoneStopsThePlay) {
    expectStopped("show cmdNone", "line 2: there is no control cmdNone on frmOne", "> show cmdNone\n");
    expectStopped("click frmTwo.lblTwo", "line 2: frmTwo is not loaded", "> click frmTwo.lblTwo\n");
    expectStopped("pick txtFirst \"a\"", "line 2: txtFirst is no list", "> pick txtFirst \"a\"\n");
    expectStopped("pick txtFirst #0", "line 2: txtFirst is no list", "> pick txtFirst #0\n");
    expectStopped("row txtFirst 1", "line 2: txtFirst is no grid", "> row txtFirst 1\n");
    expectStopped("type cmdTell \"a\"", "line 2: cmdTell is no text box", "> type cmdTell \"a\"\n");
    expectStopped("focus lblSeen", "line 2: lblSeen cannot take the focus", "> focus lblSeen\n");
}

TEST_P(PlayerTest, EveryFieldHasAValue) {
    for (const std::string put :
         {"put tblEventInfo fldEventName", "change tblEventInfo 1 fldEventName \"a\" fldEventName"})
        expectStopped(put, "line 2: the field fldEventName has no value", "> " + put + "\n");
}

TEST_P(PlayerTest, ATextThatIsCalledNullIsNone) {
    const Outcome outcome =
        play("start\nput tblEventInfo fldEventName \"null\" fldCenterName null\nrows tblEventInfo\n");
    EXPECT_NE(outcome.transcript.find(" fldEventName=\"null\" "), std::string::npos) << outcome.transcript;
    EXPECT_NE(outcome.transcript.find(" fldCenterName=null "), std::string::npos) << outcome.transcript;
}

TEST_P(PlayerTest, TheFocusOfAnotherScreenIsToldThoughItsControlIsCalledTheSame) {
    const Outcome outcome = rehearse(*makeStage(GetParam()), "start\nclose\n", {"frmOne", "frmLists"});
    EXPECT_EQ(outcome.transcript,
              "> start\n"
              "load frmOne\n"
              "show frmOne\n"
              "load frmLists\n"
              "show frmLists\n"
              "focus txtFirst\n"
              "> close\n"
              "unload frmLists\n"
              "focus txtFirst\n");
}

TEST_P(PlayerTest, ShowsWhatAControlHas) {
    expectPlayed(
        "show txtFirst opt(0) chkPlain lblSeen cmdOff cmdInside cmdHidden mnuOff fraOff frmOne.txtShort\n",
        "> show txtFirst opt(0) chkPlain lblSeen cmdOff cmdInside cmdHidden mnuOff fraOff frmOne.txtShort\n"
        "txtFirst text=\"\" enabled=yes visible=yes focus=yes\n"
        "opt(0) caption=\"A\" value=off enabled=yes visible=yes focus=no\n"
        "chkPlain caption=\"&Check\" value=off enabled=yes visible=yes focus=no\n"
        "lblSeen caption=\"nothing\" enabled=yes visible=yes focus=no\n"
        "cmdOff caption=\"Off\" enabled=no visible=yes focus=no\n"
        "cmdInside caption=\"Inside\" enabled=no visible=yes focus=no\n"
        "cmdHidden caption=\"Hidden\" enabled=yes visible=no focus=no\n"
        "mnuOff caption=\"&Off\" enabled=no visible=yes focus=no\n"
        "fraOff caption=\"Off\" enabled=no visible=yes focus=no\n"
        "frmOne.txtShort text=\"\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, TypesInPlaceOfTheWholeText) {
    expectPlayed(
        "type txtFirst \"one\"\ntype txtFirst \"two\"\nshow txtFirst\ntype txtFirst \"\"\nshow txtFirst\n",
        "> type txtFirst \"one\"\n"
        "> type txtFirst \"two\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"two\" enabled=yes visible=yes focus=yes\n"
        "> type txtFirst \"\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, TypingIsCutAtTheLimit) {
    expectPlayed(
        "type txtShort \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB3 bcd\"\nshow txtShort\n",
        "> type txtShort \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB3 bcd\"\n"
        "focus txtShort\n"
        "> show txtShort\n"
        "txtShort text=\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB3 b\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, TypingIntoALockedBoxChangesNothing) {
    expectPlayed("type txtLocked \"a\"\nshow txtLocked\n",
                 "> type txtLocked \"a\"\n"
                 "focus txtLocked\n"
                 "> show txtLocked\n"
                 "txtLocked text=\"\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, WhatNoKeyWritesCannotBeTyped) {
    const std::string nothing = "\x01\x7f\xC2\x80\xCD\xB8\xEF\xBF\xBF\xE2\x80\xA8\xF0\x9F\xBF\xBE";
    expectPlayed("type txtFirst \"a\\tb" + nothing + "c\"\nshow txtFirst\npress \"\x01\"\nshow txtFirst\n",
                 "> type txtFirst \"a\\tb" + nothing +
                     "c\"\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"abc\" enabled=yes visible=yes focus=yes\n"
                     "> press \"\x01\"\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"abc\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, NothingThatCanBeTypedChangesNothing) {
    expectPlayed("type txtFirst \"abc\"\ntype txtFirst \"\x01\"\nshow txtFirst\npress \"d\"\nshow txtFirst\n",
                 "> type txtFirst \"abc\"\n"
                 "> type txtFirst \"\x01\"\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"abc\" enabled=yes visible=yes focus=yes\n"
                 "> press \"d\"\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"d\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, AMarkOfTheByteOrderIsACharacter) {
    const std::string mark = "\xEF\xBB\xBF";
    expectPlayed("type txtFirst \"" + mark + "a\"\npress \"b\"\nshow txtFirst\n",
                 "> type txtFirst \"" + mark +
                     "a\"\n"
                     "> press \"b\"\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"" +
                     mark + "ab\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, TabsAndLineEndsAreTypedIntoBoxesOfSeveralLines) {
    expectPlayed("type txtNotes \"a\\tb\x01\\r\\nc\\rd\"\nshow txtNotes\n",
                 "> type txtNotes \"a\\tb\x01\\r\\nc\\rd\"\n"
                 "focus txtNotes\n"
                 "> show txtNotes\n"
                 "txtNotes text=\"a\\tb\\nc\\nd\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, TypesLinesWhereTheBoxHasLines) {
    expectPlayed("type txtNotes \"one\\n two\\n\"\nshow txtNotes\n",
                 "> type txtNotes \"one\\n two\\n\"\n"
                 "focus txtNotes\n"
                 "> show txtNotes\n"
                 "txtNotes text=\"one\\n two\\n\" enabled=yes visible=yes focus=yes\n");
    expectStopped("type txtFirst \"one\\ntwo\"", "line 2: txtFirst takes one line only",
                  "> type txtFirst \"one\\ntwo\"\n");
}

TEST_P(PlayerTest, ClicksTakeTheFocusAndAct) {
    expectPlayed(
        "click opt(1)\nshow lblSeen\nclick chkPlain\nshow lblSeen\nclick chkPlain\nshow lblSeen chkPlain\n",
        "> click opt(1)\n"
        "focus opt(1)\n"
        "> show lblSeen\n"
        "lblSeen caption=\"B\" enabled=yes visible=yes focus=no\n"
        "> click chkPlain\n"
        "focus chkPlain\n"
        "> show lblSeen\n"
        "lblSeen caption=\"checked\" enabled=yes visible=yes focus=no\n"
        "> click chkPlain\n"
        "> show lblSeen chkPlain\n"
        "lblSeen caption=\"unchecked\" enabled=yes visible=yes focus=no\n"
        "chkPlain caption=\"&Check\" value=off enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, AnOptionThatIsOnStaysOn) {
    expectPlayed("click opt(0)\nclick opt(0)\nclick opt(1)\nshow opt(0) opt(1)\n",
                 "> click opt(0)\n"
                 "focus opt(0)\n"
                 "> click opt(0)\n"
                 "> click opt(1)\n"
                 "focus opt(1)\n"
                 "> show opt(0) opt(1)\n"
                 "opt(0) caption=\"A\" value=off enabled=yes visible=yes focus=no\n"
                 "opt(1) caption=\"B\" value=on enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, AMenuEntryTakesNoFocus) {
    expectPlayed("click mnuEntry\nshow txtFirst\nclick mnuOff\n",
                 "> click mnuEntry\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"entry\" enabled=yes visible=yes focus=yes\n"
                 "> click mnuOff\n"
                 "refused mnuOff disabled\n");
}

TEST_P(PlayerTest, WhatIsOffOrHiddenRefuses) {
    expectPlayed("click cmdOff\nclick cmdInside\nclick cmdHidden\nfocus cmdOff\nfocus frmOne.cmdHidden\n",
                 "> click cmdOff\n"
                 "refused cmdOff disabled\n"
                 "> click cmdInside\n"
                 "refused cmdInside disabled\n"
                 "> click cmdHidden\n"
                 "refused cmdHidden hidden\n"
                 "> focus cmdOff\n"
                 "refused cmdOff disabled\n"
                 "> focus frmOne.cmdHidden\n"
                 "refused frmOne.cmdHidden hidden\n");
}

TEST_P(PlayerTest, AHiddenScreenRefuses) {
    expectPlayed("click cmdOther\nclick frmOne.mnuOff\nshow lblTwo frmOne.cmdOther\nscreens\n",
                 "> click cmdOther\n"
                 "hide frmOne\n"
                 "load frmTwo\n"
                 "show frmTwo\n"
                 "focus none\n"
                 "> click frmOne.mnuOff\n"
                 "refused frmOne.mnuOff hidden\n"
                 "> show lblTwo frmOne.cmdOther\n"
                 "lblTwo caption=\"Two\" enabled=yes visible=yes focus=no\n"
                 "frmOne.cmdOther caption=\"Other\" enabled=yes visible=yes focus=no\n"
                 "> screens\n"
                 "screens frmOne(hidden) frmTwo(shown)\n");
}

TEST_P(PlayerTest, TheFocusOfAScreenComesBackWithIt) {
    expectPlayed("click cmdOther\nclick mnuBack\nscreens\n",
                 "> click cmdOther\n"
                 "hide frmOne\n"
                 "load frmTwo\n"
                 "show frmTwo\n"
                 "focus none\n"
                 "> click mnuBack\n"
                 "unload frmTwo\n"
                 "show frmOne\n"
                 "focus cmdOther\n"
                 "> screens\n"
                 "screens frmOne(shown)\n");
}

TEST_P(PlayerTest, AControlCanKeepTheFocus) {
    expectPlayed(
        "focus txtKeeper\nclick cmdTell\ntype txtFirst \"a\"\nfocus txtShort\ntab\nbacktab\npress \"Alt+T\"\n"
        "show txtFirst\ntype txtKeeper \"free\"\ntab\n",
        "> focus txtKeeper\n"
        "focus txtKeeper\n"
        "> click cmdTell\n"
        "refused cmdTell kept\n"
        "> type txtFirst \"a\"\n"
        "refused txtFirst kept\n"
        "> focus txtShort\n"
        "refused txtShort kept\n"
        "> tab\n"
        "refused txtKeeper kept\n"
        "> backtab\n"
        "refused txtKeeper kept\n"
        "> press \"Alt+T\"\n"
        "refused txtKeeper kept\n"
        "> show txtFirst\n"
        "txtFirst text=\"\" enabled=yes visible=yes focus=no\n"
        "> type txtKeeper \"free\"\n"
        "> tab\n"
        "focus txtDeflector\n");
}

TEST_P(PlayerTest, AControlCanSendTheFocusElsewhere) {
    expectPlayed(
        "focus txtDeflector\ntype txtShort \"a\"\nshow txtShort\nfocus txtDeflector\nclick chkPlain\n"
        "show chkPlain\nfocus txtDeflector\nclick txtShort\nfocus txtDeflector\ntab\n",
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> type txtShort \"a\"\n"
        "refused txtShort kept\n"
        "focus txtFirst\n"
        "> show txtShort\n"
        "txtShort text=\"\" enabled=yes visible=yes focus=no\n"
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> click chkPlain\n"
        "focus txtFirst\n"
        "> show chkPlain\n"
        "chkPlain caption=\"&Check\" value=on enabled=yes visible=yes focus=no\n"
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> click txtShort\n"
        "refused txtShort kept\n"
        "focus txtFirst\n"
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> tab\n"
        "focus txtFirst\n");
}

TEST_P(PlayerTest, AControlCanGoOffWhileTheFocusIsOnItsWay) {
    expectPlayed("focus txtClosing\nclick cmdVictim\n",
                 "> focus txtClosing\n"
                 "focus txtClosing\n"
                 "> click cmdVictim\n"
                 "refused cmdVictim disabled\n");
}

TEST_P(PlayerTest, TabMovesOnAndBack) {
    expectPlayed("tab\ntab\nbacktab\n",
                 "> tab\n"
                 "focus txtShort\n"
                 "> tab\n"
                 "focus txtLocked\n"
                 "> backtab\n"
                 "focus txtShort\n");
}

TEST_P(PlayerTest, PressesKeys) {
    expectPlayed(
        "press \"a\"\npress \"b\"\nshow txtFirst\npress \"Backspace\"\nshow txtFirst\npress \"Tab\"\n"
        "press \"Shift+Tab\"\n",
        "> press \"a\"\n"
        "> press \"b\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"ab\" enabled=yes visible=yes focus=yes\n"
        "> press \"Backspace\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"a\" enabled=yes visible=yes focus=yes\n"
        "> press \"Tab\"\n"
        "focus txtShort\n"
        "> press \"Shift+Tab\"\n"
        "focus txtFirst\n");
    expectStopped("press \"Foo\"", "line 2: there is no key \"Foo\"", "> press \"Foo\"\n");
    expectStopped("press \"\"", "line 2: there is no key \"\"", "> press \"\"\n");
}

TEST_P(PlayerTest, KeysMoveTheCaret) {
    expectPlayed(
        "press \"b\"\npress \"c\"\npress \"Tab\"\npress \"Shift+Tab\"\npress \"Left\"\npress \"a\"\n"
        "show txtFirst\n",
        "> press \"b\"\n"
        "> press \"c\"\n"
        "> press \"Tab\"\n"
        "focus txtShort\n"
        "> press \"Shift+Tab\"\n"
        "focus txtFirst\n"
        "> press \"Left\"\n"
        "> press \"a\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"abc\" enabled=yes visible=yes focus=yes\n");
    expectPlayed(
        "type txtNotes \"a\\nc\"\npress \"Home\"\npress \"b\"\npress \"End\"\npress \"Enter\"\n"
        "press \"d\"\nshow txtNotes\n",
        "> type txtNotes \"a\\nc\"\n"
        "focus txtNotes\n"
        "> press \"Home\"\n"
        "> press \"b\"\n"
        "> press \"End\"\n"
        "> press \"Enter\"\n"
        "> press \"d\"\n"
        "> show txtNotes\n"
        "txtNotes text=\"a\\nbc\\nd\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(PlayerTest, KeysReachButtonsAndMenus) {
    expectPlayed(
        "press \"F2\"\nshow txtFirst\npress \"Alt+C\"\nshow chkPlain\npress \"Space\"\nshow chkPlain\n",
        "> press \"F2\"\n"
        "> show txtFirst\n"
        "txtFirst text=\"entry\" enabled=yes visible=yes focus=yes\n"
        "> press \"Alt+C\"\n"
        "focus chkPlain\n"
        "> show chkPlain\n"
        "chkPlain caption=\"&Check\" value=on enabled=yes visible=yes focus=yes\n"
        "> press \"Space\"\n"
        "> show chkPlain\n"
        "chkPlain caption=\"&Check\" value=off enabled=yes visible=yes focus=yes\n");
    expectPlayed("press \"Return\"\nshow txtFirst\nfocus txtFirst\npress \"Escape\"\nshow txtFirst\n",
                 "> press \"Return\"\n"
                 "focus cmdDefault\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"default\" enabled=yes visible=yes focus=no\n"
                 "> focus txtFirst\n"
                 "focus txtFirst\n"
                 "> press \"Escape\"\n"
                 "focus cmdCancel\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"cancelled\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, BoxesAreAnsweredInTheNextLines) {
    expectPlayed("click cmdAsk\nanswer Yes\nanswer Cancel\nclick cmdAsk\nanswer No\n",
                 "> click cmdAsk\n"
                 "box title=\"First\" icon=question buttons=Yes|No default=No text=\"Sure?\"\n"
                 "> answer Yes\n"
                 "box title=\"Second\" icon=information buttons=OK|Cancel default=OK text=\"Done.\"\n"
                 "> answer Cancel\n"
                 "focus cmdAsk\n"
                 "> click cmdAsk\n"
                 "box title=\"First\" icon=question buttons=Yes|No default=No text=\"Sure?\"\n"
                 "> answer No\n");
    expectPlayed("click cmdRetry\nanswer Retry\nshow txtFirst\n",
                 "> click cmdRetry\n"
                 "box title=\"Retry\" icon=none buttons=Retry|Cancel default=Retry text=\"Again?\"\n"
                 "> answer Retry\n"
                 "focus cmdRetry\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"again\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, ABoxNamesTheDataFolder) {
    expectPlayed(
        "close\nanswer OK\n",
        "> close\n"
        "box title=\"Tallybrook\" icon=none buttons=OK default=OK text=\"First line\\r\\nin <data>\"\n"
        "> answer OK\n");
}

TEST_P(PlayerTest, ABoxMustBeAnswered) {
    const std::string box =
        "> click cmdAsk\n"
        "box title=\"First\" icon=question buttons=Yes|No default=No text=\"Sure?\"\n";
    expectStopped("click cmdAsk\n\ntab\n", "line 4: unanswered box \"First\"", box);
    expectStopped("click cmdAsk\nreply \"Yes\"\n", "line 3: unanswered box \"First\"", box);
    expectStopped("click cmdAsk\n", "line 2: unanswered box \"First\"", box);
    expectStopped("click cmdAsk\nanswer OK\n", "line 3: box \"First\" has no button \"OK\"", box);
    expectStopped("click cmdAsk\nanswer yes\n", "line 3: box \"First\" has no button \"yes\"", box);
    expectStopped("click cmdAsk\nanswer\n", "line 3: the command is: answer NAME", box);
}

TEST_P(PlayerTest, AnAnswerToNothingStopsThePlay) {
    expectStopped("answer Yes\n", "line 2: no box is up", "");
    expectStopped("reply \"a\"\n", "line 2: no box is up", "");
    expectStopped("choose cancel\n", "line 2: no box is up", "");
    expectStopped("tab\nanswer Yes\n", "line 3: no box is up", "> tab\nfocus txtShort\n");
}

TEST_P(PlayerTest, InputBoxesAreReplied) {
    const std::string box =
        "> click cmdInput\n"
        "input title=\"Name\" text=\"Your name?\"\n";
    expectPlayed("click cmdInput\nreply \"Ann \xC3\x89\"\nshow txtFirst\n",
                 box +
                     "> reply \"Ann \xC3\x89\"\n"
                     "focus cmdInput\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"Ann \xC3\x89\" enabled=yes visible=yes focus=no\n");
    expectPlayed("click cmdInput\nreply \"a\\tb\"\nshow txtFirst\n",  // no key writes it
                 box +
                     "> reply \"a\\tb\"\n"
                     "focus cmdInput\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"ab\" enabled=yes visible=yes focus=no\n");
    expectPlayed("click cmdInput\nanswer Cancel\nshow txtFirst\n",
                 box +
                     "> answer Cancel\n"
                     "focus cmdInput\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"(cancelled)\" enabled=yes visible=yes focus=no\n");
    expectPlayed("click cmdInput\nanswer OK\nshow txtFirst\n",
                 box +
                     "> answer OK\n"
                     "focus cmdInput\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"\" enabled=yes visible=yes focus=no\n");
    expectStopped("click cmdInput\nanswer Yes\n", "line 3: box \"Name\" has no button \"Yes\"", box);
    expectStopped("click cmdInput\nchoose cancel\n", "line 3: unanswered box \"Name\"", box);
    for (const std::string end : {"\\n", "\\r"})
        expectStopped("click cmdInput\nreply \"a" + end + "b\"\n", "line 3: an input box takes one line only",
                      box);
}

TEST_P(PlayerTest, DialogsAreGivenAFile) {
    const std::string file = (std::filesystem::temp_directory_path() / "tallybrook-choice.txt").string();
    expectPlayed("click cmdSave\nchoose \"" + file + "\"\nshow txtFirst\n",
                 "> click cmdSave\n"
                 "dialog save title=\"Which File\" folder=\"<data>\" filter=\"All files (*.*)|*.*\" "
                 "name=\"list.txt\"\n"
                 "> choose \"" +
                     file +
                     "\"\n"
                     "focus cmdSave\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"" +
                     file + "\" enabled=yes visible=yes focus=no\n");
    const std::string dialog =
        "> click cmdOpen\n"
        "dialog open title=\"Which File\" folder=\"<data>\" filter=\"All files (*.*)|*.*\" "
        "name=\"list.txt\"\n";
    expectPlayed("click cmdOpen\nchoose cancel\nshow txtFirst\n",
                 dialog +
                     "> choose cancel\n"
                     "focus cmdOpen\n"
                     "> show txtFirst\n"
                     "txtFirst text=\"(cancelled)\" enabled=yes visible=yes focus=no\n");
    expectStopped("click cmdOpen\nanswer Cancel\n", "line 3: unanswered box \"Which File\"", dialog);
}

TEST_P(PlayerTest, AFileThatIsThereIsChosenLikeAnyOther) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "in a folder" / "old.txt").string();
    std::filesystem::create_directory(folder.path() / "in a folder");
    std::ofstream(file) << "old";
    for (const std::string command : {"click cmdSave", "click cmdOpen"}) {
        const Outcome outcome = play("start\n" + command + "\nchoose \"" + file + "\"\nshow txtFirst\n");
        EXPECT_NE(outcome.transcript.find("txtFirst text=\"" + file + "\""), std::string::npos)
            << outcome.transcript;
        EXPECT_EQ(outcome.errors, "");
    }
}

TEST_P(PlayerTest, WhatIsNoFileCanBeChosenToo) {
    const TemporaryFolder folder;
    const std::string longName = (folder.path() / std::string(300, 'n')).string();
    for (const std::string command : {"click cmdSave", "click cmdOpen"}) {
        for (const std::string& choice : {folder.path().string(), longName}) {
            const Outcome outcome =
                play("start\n" + command + "\nchoose \"" + choice + "\"\nshow txtFirst\n");
            EXPECT_NE(outcome.transcript.find("txtFirst text=\"" + choice + "\""), std::string::npos)
                << outcome.transcript;
            EXPECT_EQ(outcome.errors, "");
        }
    }
}

TEST_P(PlayerTest, ARelativeChoiceLiesWhereThePlayWasStarted) {
    expectPlayed("click cmdSave\nchoose \"a.txt\"\nshow txtFirst\n",
                 "> click cmdSave\n"
                 "dialog save title=\"Which File\" folder=\"<data>\" filter=\"All files (*.*)|*.*\" "
                 "name=\"list.txt\"\n"
                 "> choose \"a.txt\"\n"
                 "focus cmdSave\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"<cwd>/a.txt\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, ARelativeChoiceLiesThereAfterAnotherFolderWasChosenToo) {
    const Outcome outcome = play(
        "start\nclick cmdSave\nchoose \"<data>/a.txt\"\nclick cmdSave\nchoose \"b.txt\"\nshow txtFirst\n");
    EXPECT_NE(outcome.transcript.find("txtFirst text=\"<cwd>/b.txt\""), std::string::npos)
        << outcome.transcript;
}

TEST_P(PlayerTest, AFileMayBeCalledCancel) {
    expectPlayed("click cmdSave\nchoose \"cancel\"\nshow txtFirst\n",
                 "> click cmdSave\n"
                 "dialog save title=\"Which File\" folder=\"<data>\" filter=\"All files (*.*)|*.*\" "
                 "name=\"list.txt\"\n"
                 "> choose \"cancel\"\n"
                 "focus cmdSave\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"<cwd>/cancel\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, AChoiceMayLieInTheDataFolder) {
    expectPlayed("click cmdSave\nchoose \"<data>/a b.txt\"\nshow txtFirst\n",
                 "> click cmdSave\n"
                 "dialog save title=\"Which File\" folder=\"<data>\" filter=\"All files (*.*)|*.*\" "
                 "name=\"list.txt\"\n"
                 "> choose \"<data>/a b.txt\"\n"
                 "focus cmdSave\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"<data>/a b.txt\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, TakesPicturesOnlyOfReportsThatWereOpened) {
    expectStopped("shot-report one\n", "line 2: no report has been opened", "> shot-report one\n");
    expectPlayed("click cmdOutside\nshot-report one\n",
                 "> click cmdOutside\n"
                 "pointer busy\n"
                 "pointer default\n"
                 "viewer \"notepad.exe <data>/Report.txt\"\n"
                 "focus cmdOutside\n"
                 "> shot-report one\n");
}

TEST_P(PlayerTest, WritesWhatTheProgramDoesOutside) {
    expectPlayed("click cmdOutside\n",
                 "> click cmdOutside\n"
                 "pointer busy\n"
                 "pointer default\n"
                 "viewer \"notepad.exe <data>/Report.txt\"\n"
                 "focus cmdOutside\n");
}

TEST_P(PlayerTest, GoesOnBesideTheHelp) {
    expectPlayed("click cmdHelp\ntype txtFirst \"a\"\nclick cmdAsk\nanswer No\nshow txtFirst\n",
                 "> click cmdHelp\n"
                 "help contents\n"
                 "help 233\n"
                 "focus cmdHelp\n"
                 "> type txtFirst \"a\"\n"
                 "focus txtFirst\n"
                 "> click cmdAsk\n"
                 "box title=\"First\" icon=question buttons=Yes|No default=No text=\"Sure?\"\n"
                 "> answer No\n"
                 "focus cmdAsk\n"
                 "> show txtFirst\n"
                 "txtFirst text=\"a\" enabled=yes visible=yes focus=no\n");
}

TEST_P(PlayerTest, MovesTheClock) {
    expectPlayed(
        "click cmdTime\nshow txtFirst\nclock \"2027-01-02 00:00:00\"\nclick cmdTime\nshow txtFirst\n",
        "> click cmdTime\n"
        "focus cmdTime\n"
        "> show txtFirst\n"
        "txtFirst text=\"old\" enabled=yes visible=yes focus=no\n"
        "> clock \"2027-01-02 00:00:00\"\n"
        "> click cmdTime\n"
        "> show txtFirst\n"
        "txtFirst text=\"new\" enabled=yes visible=yes focus=no\n");
    expectStopped("clock \"noon\"", "line 2: a time is \"YYYY-MM-DD HH:MM:SS\"", "> clock \"noon\"\n");
}

TEST_P(PlayerTest, AFailureThatNothingCatchesEndsTheProgram) {
    expectPlayed("click cmdFail\nnote \"after\"\n",
                 "> click cmdFail\n"
                 "run-time error 13 \"Type mismatch\"\n"
                 "end program\n"
                 "> note \"after\"\n"
                 "\"after\"\n");
}

TEST_P(PlayerTest, LittleGoesOnAfterTheProgramHasEnded) {
    const std::string ended = "> click cmdEnd\nend program\n";
    expectPlayed("click cmdEnd\nrows tblEventInfo\nclock \"2027-01-02 00:00:00\"\n",
                 ended + "> rows tblEventInfo\nrows tblEventInfo 0\n> clock \"2027-01-02 00:00:00\"\n");
    for (const std::string command : {"screens", "start", "show txtFirst", "tab", "answer Yes", "shot one"})
        expectStopped("click cmdEnd\n" + command, "line 3: the program has ended", ended);
}

TEST_P(PlayerTest, AStatementTriedWithoutEndStopsThePlay) {
    expectStopped("click cmdAgain\ntab\n", "line 2: the program tries a statement without end",
                  "> click cmdAgain\nretrying \"One, Again.\"\n", status::kRetrying);
}

TEST_P(PlayerTest, ATableThatIsNoneStopsThePlay) {
    expectStopped("rows tblNone", "line 2: there is no table tblNone", "> rows tblNone\n");
}

TEST_P(PlayerTest, APictureIsPassedOverWhereNoneAreWanted) {
    expectPlayed("shot one\n", "> shot one\n");
}

/// A stage that counts how often it is told that something was saved.
class CountingStage : public ModelStage {
public:
    Display& display() override { return display_; }
    [[nodiscard]] int saves() const { return display_.saves; }

private:
    struct Counting : PlannedDisplay {
        int saves = 0;
        void saved() override { ++saves; }
    };
    Counting display_;
};

TEST(Player, TellsTheStageWhatIsSaved) {
    std::istringstream script;
    std::ostringstream transcript;
    CountingStage stage;
    Player player(script, transcript, stage, Places("data", "start"), kEvening);
    player.display().saved();
    EXPECT_EQ(stage.saves(), 1);
    EXPECT_EQ(transcript.str(), "");
}

}  // namespace

}  // namespace tallybrook::test
