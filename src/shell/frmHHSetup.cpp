#include "shell/frmHHSetup.h"

#include "shell/Configuration.h"
#include "shell/TBK_Globals.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tallybrook {

namespace {

constexpr const char* kRoot = "/";

struct HandheldType {
    const char* caption;
    const char* value;  // in gHHType
};

constexpr std::array<HandheldType, 2> kTypes{{{"Palm Pilot", "Palm"}, {"Pocket PC", "PPC"}}};

/// Where a search for a folder begins.
std::string homeFolder() {
    const char* const home = std::getenv("HOME");
    return home != nullptr && FolderList::isFolder(home) ? home : kRoot;
}

MessageBox notice(const char* text) {
    return {.text = text, .title = "Handheld Configuration", .icon = Icon::Information};
}

}  // namespace

frmHHSetup::frmHHSetup(Program& owner)
    : ProgramScreen(owner, "frmHHSetup", "Tallybrook - Handheld Setup"),
      optHHType("optHHType", 0, 1, [this](int index, const std::string& name) {
          return std::make_unique<OptionButton>(fraHHType, name, handheldTypes,
                                                kTypes.at(static_cast<std::size_t>(index)).caption);
      }) {
    for (int index = 0; index <= 1; ++index)
        optHHType(index).onClick = [this, index] {
            session().gHHType = kTypes.at(static_cast<std::size_t>(index)).value;
        };
    drvHHDir.onChange = [this] {
        dirHHDir.setPath(drvHHDir.picked());
        txtHHDir.setText(dirHHDir.path());
    };
    dirHHDir.onChange = [this] { txtHHDir.setText(dirHHDir.path()); };
    txtHHDir.onChange = [this] { cmdSaveChg.setEnabled(true); };

    setPrimary(cmdSaveChg);
    cmdSaveChg.onClick = [this] { cmdSaveChg_Click(); };
}

Layout frmHHSetup::layout() {
    return layout::column(
        {layout::row({Layout(imgLogo).atStart(), Layout(lblTitle).stretched()}),
         layout::row(
             {layout::column({layout::group(fraHHType, layout::row({optHHType(0), optHHType(1)}).atStart()),
                              layout::group(fraHHDir, layout::form({lblDir, txtHHDir, lblSelDrive, drvHHDir,
                                                                    lblSelDir, Layout(dirHHDir).stretched()}))
                                  .stretched()})
                  .stretched(),
              layout::buttons({cmdSaveChg, cmdMain, layout::space(), cmdExit})})
             .stretched()});
}

void frmHHSetup::onLoad() {
    const auto* const type = std::ranges::find(kTypes, session().gHHType, &HandheldType::value);
    if (type == kTypes.end())
        showNoConfiguration();
    else
        showConfiguration(static_cast<int>(type - kTypes.begin()));
    screens().show(*this);
    optHHType(0).focus();
}

void frmHHSetup::showConfiguration(int type) {
    optHHType(type).setValue(true);
    txtHHDir.setText(session().gHHSyncDir);
    dirHHDir.setPath(session().gHHSyncDir.empty() ? homeFolder() : session().gHHSyncDir);
    drvHHDir.showVolumeOf(dirHHDir.path());
}

void frmHHSetup::showNoConfiguration() {
    drvHHDir.showVolumeOf(kRoot);
    dirHHDir.setPath(kRoot);
    txtHHDir.setText("");
    cmdSaveChg.setEnabled(false);
}

void frmHHSetup::onClose() {
    cmdMain.click();
}

void frmHHSetup::cmdSaveChg_Click() {
    if (ask(question("Save these changes to your handheld configuration?", "Save Handheld Configuration")) !=
        Answer::Yes) {
        ask(notice("Changes cancelled."));
        return;
    }
    session().gHHSyncDir = txtHHDir.text();
    Write_Config(program());
    program().display.saved();
    ask(notice("Handheld configuration changes saved."));
}

}  // namespace tallybrook
