// What a user who has set a key lets into place.
#include "updating.h"

namespace ombrin::test {

using recording::RecordingIntegrity;
using testing::ElementsAre;

namespace {

const std::string kKey(Integrity::kKeyDigits, 'a');
const std::string kNotUsable = "The list of files from the server cannot be used, and nothing is downloaded.\n\n";

/// The sums of a file Map.dat of the four bytes "data", and what the server gives for it.
struct Offer {
    std::string given = "data";
    int size = 4, directory = 1;
    std::string name = "Map.dat", key = kKey, version = "3.34", behind = "";

    std::string Sums() const {
        const std::string text = ";FileVersion=" + version + "\n" +
                                 RecordingIntegrity::Digits("data", Integrity::kSumDigits) + " " +
                                 std::to_string(size) + " " + std::to_string(directory) + " " + name + "\n";
        return text + "signature " + RecordingIntegrity::Sign(key, text) + "\n" + behind;
    }
};

} // namespace

TEST(SignedUpdate, OnlyWhatWasSignedGetsIntoPlace) {
    const struct {
        Offer offer;
        std::string why;
    } kCases[] = {
        {{}, ""},
        {{.given = "dat4"}, "Map.dat: its content is another one."},
        {{.size = 5}, "Map.dat: it is too short."},
        {{.given = "data+"}, "Map.dat: it is too long."},
        {{.name = "Other.dat"}, "Map.dat: the signed sums do not name it."},
        {{.directory = 2}, "Map.dat: the signed sums do not name it."},
        {{.key = std::string(Integrity::kKeyDigits, 'b')}, "Ombrin.sums: the signature does not fit the key."},
        {{.version = "3.33"}, "Ombrin.sums: the list promised another version."},
        {{.behind = "more\n"}, "Ombrin.sums: the signed sums cannot be read."},
    };
    for (const auto& [offer, why] : kCases) {
        SCOPED_TRACE(why);
        Updating ann("/o", kKey);
        ann.Begins("Map.dat;4;1;3.34;Ombrin.sums;" + std::to_string(offer.Sums().size()) + ";1;3.34;");
        ann.Gives({offer.Sums(), offer.given});
        EXPECT_EQ(ann.OffersOK(), why.empty());
        if (why.empty()) continue;
        EXPECT_THAT(ann.Boxes(), ElementsAre("What was downloaded is not what was signed, and nothing of it was put "
                                             "in place.\n\n" +
                                                 why,
                                             kCanceled));
        EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre());
    }
}

TEST(SignedUpdate, WithoutNewSumsThoseInPlaceServeAndAKeyThatIsNoneRefusesEverything) {
    Updating keyless("/o", "abc");
    keyless.Lists("Ombrin.sums;9;1;3.34;");
    EXPECT_THAT(keyless.Boxes(), ElementsAre(kNotUsable + "Ombrin.sums: the setting UpdateKey holds no key."));
    Updating ann("/o", kKey);
    ann.Lists("Map.dat;4;1;3.34;");
    EXPECT_THAT(ann.Boxes(), ElementsAre(kNotUsable + "Ombrin.sums: the server offers no signed sums."));
    ann.Lies("/o/Client/Ombrin.sums", Offer{}.Sums());
    ann.world.localFiles.refused = {"/o/Client/Map.dat"};
    ann.Begins("Map.dat;4;1;3.34;");
    ann.Gives({"data"});
    EXPECT_THAT(ann.Boxes(), ElementsAre("Not all files could be put in place.  This one and those after it are "
                                         "missing.\n\nMap.dat: it could not be written."));
    EXPECT_TRUE(ann.OffersOK());
}

} // namespace ombrin::test
