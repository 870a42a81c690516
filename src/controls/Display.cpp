#include "controls/Display.h"

namespace tallybrook {

const std::vector<Answer>& answersOf(Buttons buttons) {
    static const std::vector<Answer> kOK{Answer::OK};
    static const std::vector<Answer> kOKCancel{Answer::OK, Answer::Cancel};
    static const std::vector<Answer> kYesNo{Answer::Yes, Answer::No};
    static const std::vector<Answer> kRetryCancel{Answer::Retry, Answer::Cancel};
    switch (buttons) {
        case Buttons::OK:
            return kOK;
        case Buttons::OKCancel:
            return kOKCancel;
        case Buttons::YesNo:
            return kYesNo;
        case Buttons::RetryCancel:
            break;
    }
    return kRetryCancel;
}

}  // namespace tallybrook
