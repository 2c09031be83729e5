// Blocks that print another group's lines: the network block with the audio selection of the
// multiple-radio records, and the keypad block with its extensions.
#include <gtest/gtest.h>

#include <persona/options/keypad_ctrl_opts.h>
#include <persona/options/network_opts.h>
#include <persona/personality/personality.h>

namespace persona {
namespace {

std::vector<std::string> Lines(const CStringArray& out) {
  std::vector<std::string> lines;
  for (const CString& l : out) lines.push_back(l.str());
  return lines;
}

TEST(NetworkOpts, BlockEndsWithTheAudioSelectionOfThePersonality) {
  CNetworkOpts net;
  net.SetNetRadioType(1);
  net.SetMuteTimeout(7);
  CPersonality personality(54, 0);
  auto* audio = new CMultipleRadioSonvraOpts;
  audio->SetPrefOffset(-3);
  personality.PutOption(audio);
  CStringArray out;
  net.printOptToBuffer(out, &personality, 54);
  const std::vector<std::string> expected = {
      "NETWORK OPTIONS:",
      "----------------",
      "   Network Radio Type         - Primary        Network Controller          - Off",
      "   Connection                 - Serial         Switching Mode              - Manual",
      "   Audio Mode                 - Mixed          Receive Audio Select        - Selected Radio",
      "   Emergency Select           - Selected Radio Mute Time-out (sec)         - 7",
      "   Power Up Radio             - 1              Power Up Volume             - 0",
      "   Termination                - Off            Aux Input 1                 - Off",
      "   Aux Input 2                - Off            Forced Mute                 - Off",
      "   Network Display            - Off            Dual Control                - Off",
      "   Audio Switch Delta         - 0              Audio Transition Level      - 0",
      "   Minimum Trunked Level      - 0              Audio Hang Time             - 0",
      "   Preference Offset          - -3",
      "",
  };
  EXPECT_EQ(Lines(out), expected);

  // A personality without the record: a temporary one with the model defaults is quoted.
  CPersonality bare(54, 0);
  CStringArray quoted;
  net.printOptToBuffer(quoted, &bare, 54);
  ASSERT_EQ(quoted.GetSize(), out.GetSize());
  EXPECT_EQ(quoted[10].str(),
            "   Audio Switch Delta         - 6              Audio Transition Level      - 20");
  EXPECT_EQ(bare.GetOption(CMultipleRadioSonvraOpts::GetThisClass()), nullptr);
}

TEST(KeypadCtrlOpts, ExtensionLinesOnlyWhenThePersonalityHoldsThem) {
  const CKeypadCtrlOpts keypad(54, 0);
  CPersonality bare(54, 0);
  CStringArray plain;
  keypad.printOptToBuffer(plain, &bare, 54);
  // Twelve own values, two per line.
  EXPECT_EQ(plain.GetSize(), 2 + 6 + 1);

  CPersonality personality(54, 0);
  auto* e2 = new CKeypadCtrlOpts_E2(54, 0);
  personality.PutOption(e2);
  CStringArray out;
  keypad.printOptToBuffer(out, &personality, 54);
  ASSERT_EQ(out.GetSize(), 2 + 6 + 3 + 1);
  EXPECT_EQ(out[10].str(), "   Keypad Lock Sequence       - *#");
}

}  // namespace
}  // namespace persona
