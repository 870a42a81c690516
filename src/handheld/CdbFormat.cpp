#include "handheld/CdbFormat.h"

namespace tallybrook {

namespace {

constexpr CdbField kFirstText{CdbForm::Bare, CdbType::Text, CdbStart::FirstColumn};
constexpr CdbField kBareText{CdbForm::Bare, CdbType::Text, CdbStart::StepBack};
constexpr CdbField kNumber{CdbForm::Bare, CdbType::WholeNumber, CdbStart::StepBack};
constexpr CdbField kDouble{CdbForm::Bare, CdbType::Double, CdbStart::StepBack};
constexpr CdbField kQuoted{CdbForm::Quoted, CdbType::Text, CdbStart::AsLeft};
constexpr CdbField kFirstQuoted{CdbForm::Quoted, CdbType::Text, CdbStart::StepBack};

constexpr CdbField kEventFields[] = {
    kFirstText,  // 3 handheld event ID
    kQuoted,     // 4 event name
    kQuoted,     // 5 date bowled
    kQuoted,     // 6 event type
    kQuoted,     // 7 center name
    kQuoted,     // 8 center location
    kQuoted,     // 9 comment
    kNumber,     // 10 games in the event
    kDouble,     // 11 series average
    kNumber,     // 12 series total
};

constexpr CdbField kGameFields[] = {
    kFirstText,    // 3 handheld game ID
    kBareText,     // 4 handheld event ID
    kNumber,       // 5 game number
    kNumber,       // 6 game score
    kNumber,       // 7 used for nothing
    kNumber,       // 8 left lane
    kNumber,       // 9 right lane
    kNumber,       // 10 start lane
    kFirstQuoted,  // 11 lane pair
    kQuoted,       // 12 score type
    kQuoted,       // 13 lane condition
    kQuoted,       // 14 comment
};

constexpr CdbField kFrameFields[] = {
    kFirstText,    // 3 handheld frame ID
    kBareText,     // 4 handheld event ID
    kBareText,     // 5 handheld game ID
    kNumber,       // 6 frame number
    kNumber,       // 7 game number
    kNumber,       // 8 lane bowled
    kFirstQuoted,  // 9 ball used
    kQuoted,       // 10 foot position
    kQuoted,       // 11 lane target
    kQuoted,       // 12 first ball
    kQuoted,       // 13 second ball
    kQuoted,       // 14 fill ball
    kQuoted,       // 15 line score
    kQuoted,       // 16 comment
};

// Neither the type of an event nor the unused number of a game goes back to the handheld.
constexpr int kMarkedEvent[] = {3, 4, 5, 7, 8, 9, 10, 11, 12};
constexpr int kMarkedGame[] = {3, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14};
constexpr int kMarkedFrame[] = {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

}  // namespace

const CdbFormat kEventFormat{.file = "tblEvent",
                             .many = "events",
                             .title = "Events",
                             .opening = ": Reading events",
                             .nothing = "No events to process.",
                             .firstColumn = 13,
                             .lastBeforeStatus = 0,
                             .fields = kEventFields,
                             .marked = kMarkedEvent};

const CdbFormat kGameFormat{.file = "tblGame",
                            .many = "games",
                            .title = "Games",
                            .opening = ": Reading games.",
                            .nothing = "No games to process.",
                            .firstColumn = 17,
                            .lastBeforeStatus = 4,
                            .fields = kGameFields,
                            .marked = kMarkedGame};

const CdbFormat kFrameFormat{.file = "tblFrame",
                             .many = "frames",
                             .title = "Frames",
                             .opening = "",
                             .nothing = "",
                             .firstColumn = 17,
                             .lastBeforeStatus = 7,
                             .fields = kFrameFields,
                             .marked = kMarkedFrame};

}  // namespace tallybrook
