// Load repairs that reach into option records (see personality/load_fixups.h).
#include <persona/personality/load_fixups.h>

#include <memory>
#include <vector>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/personality/personality.h>
#include <persona/systems/trunk_set.h>

namespace persona {

void ApplyGeneralOptionsFixup(CPersonality& personality) {
  CGenRadioOpts* general = personality.GetOption<CGenRadioOpts>();
  if (general == nullptr) return;
  if (general->GetEmerLatch() != 0) {
    general->SetEmerLatch(1);
    if (personality.GetOption<CSupervisoryOpts>() == nullptr) {
      auto supervisory = std::make_unique<CSupervisoryOpts>(personality.GetLastRadio(), 0);
      supervisory->SetEmerLID(1);
      CSupervisoryOpts* offered = supervisory.get();
      personality.PutOption(offered);
      if (personality.GetOption<CSupervisoryOpts>() == offered) supervisory.release();
    }
  }
  // Trunk sets that never had a baud rate take the general options' baud rate and band width.
  for (int i = 0; i < personality.GetNumTrkSets(); ++i) {
    auto* trunk = dynamic_cast<CTrunkSet*>(personality.GetSetAt(i, TrunkSetType));
    if (trunk == nullptr || trunk->GetBaudRate() != 0xFF) continue;
    trunk->SetBaudRate(general->GetBaudRate());
    trunk->SetBandWidth(general->GetBandWidth());
  }
}

bool RemapToneEncodeTriggers(CPersonality& personality) {
  CToneEncode* encode = personality.GetOption<CToneEncode>();
  if (encode == nullptr) return false;
  std::vector<CToneSeq> seqs = encode->GetSeqs();
  bool changed = false;
  for (CToneSeq& seq : seqs) {
    if (seq.GetEncodeType() != 2) continue;
    const BYTE trigger = seq.GetEncodingTrigger();
    seq.SetEncodingTrigger(trigger == 3 ? 0 : static_cast<BYTE>(trigger + 1));
    changed = true;
  }
  if (changed) encode->SetSeqs(seqs);
  return changed;
}

}  // namespace persona
