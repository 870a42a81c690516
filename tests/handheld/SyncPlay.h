#pragma once

#include "handheld/ExportFiles.h"
#include "shell/TBK_Globals.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace tallybrook::test {

enum class Handheld { Palm, PocketPC };

/// The program with a handheld beside it.
class SyncPlay : public Play {
public:
    explicit SyncPlay(Handheld type = Handheld::Palm) {
        session().gHHType = type == Handheld::Palm ? "Palm" : "PPC";
        session().gHHSyncDir = handheldFolder().string();
        std::filesystem::create_directory(handheldFolder());
        handOverTo("frmSyncPDA");
        display.forgetEvents();
    }

    [[nodiscard]] std::filesystem::path handheldFolder() const { return dataFolder() / "Hand Sync"; }
    [[nodiscard]] std::filesystem::path workingFolder() const { return dataFolder() / "TBRK"; }
    [[nodiscard]] std::filesystem::path archiveFolder() const { return workingFolder() / "PDA DB Archive"; }
    /// The files of a folder by name, folders left out.
    [[nodiscard]] static std::set<std::string> filesIn(const std::filesystem::path& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.is_regular_file())
                names.insert(entry.path().filename().string());
        }
        return names;
    }

    /// Puts the export files where the handheld's desktop side leaves them.
    void put(const Exports& files) {
        put("tblEvent", withLineEnds(files.events));
        put("tblGame", withLineEnds(files.games));
        put("tblFrame", withLineEnds(files.frames));
    }
    void put(const std::string& name, const std::string& bytes) {
        const bool isPalm = session().gHHType == "Palm";
        std::ofstream(exportFile(isPalm ? handheldFolder() : workingFolder(), name), std::ios::binary)
            << bytes;
    }
    static std::filesystem::path exportFile(const std::filesystem::path& folder, const std::string& name) {
        return folder / (name + ".cdb");
    }
    [[nodiscard]] std::string working(const std::string& name) const {
        return bytesOf(workingFolder() / name);
    }

    // The logs, whole.
    [[nodiscard]] std::string runLog(const std::string& stamp = "11-14-2026-2155") const {
        return bytesOf(archiveFolder() / ("PDA_SyncLog-" + stamp + ".txt"));
    }
    [[nodiscard]] std::string masterLog() const { return working("PDASyncLog-Master.log"); }
    /// The lines of the run's log of records and counts: what comes behind the opening of each section.
    [[nodiscard]] bool logHolds(const std::string& line) const {
        return ("\r\n" + runLog()).find("\r\n" + line + "\r\n") != std::string::npos;
    }

    // Boxes.
    [[nodiscard]] static Expected sayingWhatIsToCome() {
        return {"PDA Sync", Answer::OK,
                "This will synchronize the data from your handheld device to the Tallybrook database."};
    }
    [[nodiscard]] static Expected askingToDelete(Answer answer) {
        return {"Delete PDA Data", answer, "Delete data from PDA on the next synchronization?"};
    }
    [[nodiscard]] static Expected failure(const std::string& procedure, int number) {
        return {
            "Database Error", Answer::OK,
            lines({"Error Number: " + std::to_string(number), "Error: " + RunTimeError(number).description(),
                   "Module: Sync PDA, " + procedure + "."})};
    }
    [[nodiscard]] Expected complete(const std::string& stamp = "11-14-2026-2155") const {
        return {"Sync Complete", Answer::OK,
                "Sync is complete. Details can be viewed in: \r\n" +
                    (archiveFolder() / ("PDA_SyncLog-" + stamp + ".txt")).string() +
                    ".\r\nYou should sync your PDA at this time to update your PDA database."};
    }
    /// The boxes of the check over a logbook with rows in all tables.
    [[nodiscard]] static std::vector<Expected> plainCheck() { return {{"Check Complete", Answer::OK}}; }
    /// The boxes of the check over an empty logbook.
    [[nodiscard]] static std::vector<Expected> checkOfNothing() {
        return {{"Database Error"}, {"Database Error"},        {"Database Error"},
                {"Database Error"}, {"No Events", Answer::OK}, {"Check Complete"}};
    }

    /// A whole run that is to come to its end, with the boxes of its middle.
    void sync(Answer toDelete, const std::vector<Expected>& middle = {},
              const std::vector<Expected>& check = plainCheck(), const std::string& button = "cmdAddPDA") {
        std::vector<Expected> boxes{sayingWhatIsToCome(), askingToDelete(toDelete)};
        boxes.insert(boxes.end(), middle.begin(), middle.end());
        boxes.insert(boxes.end(), check.begin(), check.end());
        boxes.push_back({"Sync Complete", Answer::OK});
        click(button, boxes);
    }
    /// A run that ends the program, with the boxes behind the two first ones.
    void failingSync(const std::vector<Expected>& failures, Answer toDelete = Answer::Yes) {
        std::vector<Expected> boxes{sayingWhatIsToCome(), askingToDelete(toDelete)};
        boxes.insert(boxes.end(), failures.begin(), failures.end());
        click("cmdAddPDA", boxes);
        EXPECT_TRUE(program().hasEnded());
    }

    [[nodiscard]] std::vector<std::string> events() {
        return rows("tblEventInfo", {"fldSessionNum", "fldEventName", "fldDateBowled", "fldCenterName",
                                     "fldCenterLoc", "fldEventType", "fldNumGames", "fldGmsRecorded",
                                     "fldSeriesTot", "fldSeriesAvg", "fldComment", "fldHHRecordID"});
    }
    [[nodiscard]] std::vector<std::string> games() {
        return rows("tblGameInfo",
                    {"fldGameKey", "fldSessionNum", "fldGameNum", "fldStartLane", "fldLeftLane",
                     "fldRightLane", "fldLanePair", "fldGameScore", "fldLaneCond", "fldComment",
                     "fldScoreType", "fldFrmsRecorded", "fldHHRecordID", "fldBowlHand"});
    }
    [[nodiscard]] std::vector<std::string> frames() {
        return rows("tblFrameInfo",
                    {"fldFrameKey", "fldSessionNum", "fldGameNum", "fldFrameNum", "fldLaneBowled",
                     "fldBallUsed", "fldFootPos", "fldLaneTgt", "fldFirstBallRes", "fldSecondBallRes",
                     "fldFillBallRes", "fldComment", "fldLineScore", "fldHHRecordID"});
    }
};

}  // namespace tallybrook::test
