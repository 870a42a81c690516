#include "shell/frmAbout.h"

#include "shell/Terms.h"

namespace tallybrook {

frmAbout::frmAbout(Program& owner) : ProgramScreen(owner, "frmAbout", "About Tallybrook") {
    lblVersion.setCaption(TALLYBROOK_VERSION);
    setPrimary(cmdAboutOK);
    Text1.setText(termsOfUse());
    Text1.setSpokenName("About Tallybrook");
    cmdAboutOK.onClick = [this] { screens().unload(*this); };
}

Layout frmAbout::layout() {
    return layout::column(
        {layout::space(),
         layout::row({Layout(Image1).centred(),
                      layout::column({lblProduct, lblVersion, lblMaker, lblMail}).stretched()}),
         Text1, Layout(cmdAboutOK).centred(), layout::space()});
}

void frmAbout::onLoad() {
    screens().show(*this);
}

void frmAbout::onClose() {
    cmdAboutOK.click();
}

}  // namespace tallybrook
