// The command line.
#include "options.h"

#include "call.h"

#include <cstring>

using namespace odoors;

TEST(OptionsTest, AreReadInEveryForm) {
    const Options options = optionsOf({"--dropfile", "-x", "/UserName=", "-RealName", "/stdio",
                                       "-timeleft=99999999999999999999", "--onecaller", "a=b"});
    EXPECT_EQ(options.dropFile, "-x");
    EXPECT_EQ(options.userName, "");
    EXPECT_TRUE(options.realName);
    EXPECT_TRUE(options.standardStreams);
    EXPECT_EQ(options.minutesLeft, 10'000'000'000'000);
    EXPECT_EQ(options.lockFile, "a=b");
}

TEST(OptionsTest, ValuesMayBeGluedToOneLetter) {
    EXPECT_EQ(optionsOf({"-h-1"}).handle, -1);
    EXPECT_EQ(optionsOf({"-D/path=x"}).dropFile, "/path=x");
    EXPECT_EQ(optionsOf({"-n=2"}).node, 2);
}

TEST(OptionsTest, TheLastOneCounts) {
    EXPECT_EQ(optionsOf({"-SOCKET=5", "-H6"}).handle, 6);
    EXPECT_EQ(optionsOf({"-GRAPHICS", "-ascii"}).ansi, false);
    EXPECT_EQ(optionsOf({"-charset", "UTF8"}).charset, Charset::utf8);
    EXPECT_EQ(optionsOf({"-charset", "utf-8", "-charset=auto"}).charset, std::nullopt);
}

TEST(OptionsTest, WrongOnesAreRefusedByName) {
    const std::vector<std::pair<Arguments, std::string>> wrong{
        {{"local"}, "unknown option local"},
        {{"-DROPFILE"}, "option -DROPFILE needs a value"},
        {{"-N2x"}, "option -N2x: \"2x\" is not a whole number from 0 to 2147483647"},
        {{"-H", "-2"}, "option -H: \"-2\" is not a whole number from -1 to 2147483647"},
        {{"-TIMELEFT="}, "option -TIMELEFT: \"\" is not a whole number of 0 or more"},
        {{"-CHARSET", "latin1"}, "option -CHARSET: \"latin1\" is not cp437, utf8 or auto"}};
    for (const auto& [arguments, reason] : wrong) {
        EXPECT_THAT([words = arguments] { optionsOf(words); }, failsWith(reason));
    }
}

TEST(OptionsTest, HelpAndVersionGoToStandardOutput) {
    const Outcome help = callWithKeys({"-?", "-nonsense"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
    std::strcpy(od_control.od_prog_name, "Chess");
    std::strcpy(od_control.od_prog_version, "2.5");
    EXPECT_EQ(callWithKeys({"-VERSION", "-nonsense"}, "", [] {}).shown, "Chess 2.5\n");
}
