#include "shell/frmAbout.h"

#include "shell/TBK_Globals.h"

namespace tallybrook {

frmAbout::frmAbout(Program& owner) : ProgramScreen(owner, "frmAbout", "About Tallybrook") {
    lblVersion.setCaption(TALLYBROOK_VERSION);
    setPrimary(cmdAboutOK);
    Text1.setText(lines({"Tallybrook keeps the logbook of a tenpin bowler.",
                         "It is provided as it is, without warranty of any kind.",
                         "Your logbook stays on this machine: nothing is sent anywhere.",
                         "You may use and copy the program for your own bowling.",
                         "Copyright \u00a9 the Tallybrook team. All rights reserved."}));
    Text1.setSpokenName("About Tallybrook");
    cmdAboutOK.onClick = [this] { screens().unload(*this); };
}

Layout frmAbout::layout() {
    return layout::column(
        {layout::row({Layout(Image1).centred(),
                      layout::column({lblProduct, lblVersion, lblMaker, lblMail}).stretched()}),
         Layout(Text1).stretched(), Layout(cmdAboutOK).centred()});
}

void frmAbout::onLoad() {
    screens().show(*this);
}

void frmAbout::onClose() {
    cmdAboutOK.click();
}

}  // namespace tallybrook
