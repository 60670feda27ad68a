#include "scope/scope_controls.h"

#include <algorithm>
#include <string>

#include "protocol/vocabulary.h"

namespace vireon::scope {
namespace {

bool checked(const form::CheckBox& box) {
  return box.value() == 1;
}

void colourCaption(form::CheckBox& box) {
  box.setForeColor(checked(box) ? form::kRed : form::kButtonText);
}

}  // namespace

void ScopeControls::connectEvents() {
  using form::Button;
  using form::CheckBox;
  form_.chkVac.onEach(&CheckBox::onClick, [this](int index) { chkVac_Click(index); });
  form_.chkVat.onEach(&CheckBox::onClick, [this](int index) { chkVat_Click(index); });
  form_.chkVof.onEach(&CheckBox::onClick, [this](int index) { chkVof_Click(index); });
  form_.cmdVu.onEach(&Button::onClick, [this](int index) { cmdVu_Click(index); });
  form_.cmdVd.onEach(&Button::onClick, [this](int index) { cmdVd_Click(index); });
  form_.cmdTud.onEach(&Button::onClick, [this](int index) { cmdTud_Click(index); });
  form_.cmdSud.onEach(&Button::onClick, [this](int index) { cmdSud_Click(index); });
  form_.optTS.onEach(&form::OptionButton::onClick, [this](int index) { optTS_Click(index); });
  form_.sldPosV.onEach(&form::Slider::onChange, [this](int index) { sldPosV_Change(index); });
  form_.chkHat.onClick = [this] { chkHat_Click(); };
  form_.chkAt.onClick = [this] { chkAt_Click(); };
  form_.chkSgl.onClick = [this] { chkSgl_Click(); };
  form_.cmdSlp.onClick = [this] { cmdSlp_Click(); };
  form_.sldPosH.onChange = [this] { sldPosH_Change(); };
  form_.trgLvl.onChange = [this] { trgLvl_Change(); };
}

void ScopeControls::sendChannel(int index, std::string_view action) {
  const std::string mnemonic = protocol::channelMnemonic("VD", index);
  link_.transKcmd(mnemonic + std::string(action) + ";" + mnemonic + "??");
}

void ScopeControls::chkVac_Click(int index) {
  if (blocked()) {
    return;
  }
  state_.rxHold = false;
  sendChannel(index, checked(form_.chkVac[index]) ? "ac" : "dc");
}

void ScopeControls::chkVat_Click(int index) {
  if (blocked()) {
    return;
  }
  colourCaption(form_.chkVat[index]);
  sendChannel(index, checked(form_.chkVat[index]) ? "at" : "mn");
}

void ScopeControls::chkVof_Click(int index) {
  if (blocked()) {
    return;
  }
  state_.rxHold = false;
  colourCaption(form_.chkVof[index]);
  sendChannel(index, checked(form_.chkVof[index]) ? "on" : "of");
}

void ScopeControls::cmdVu_Click(int index) {
  if (!blocked()) {
    sendChannel(index, "up");
  }
}

void ScopeControls::cmdVd_Click(int index) {
  if (!blocked()) {
    sendChannel(index, "dn");
  }
}

void ScopeControls::sldPosV_Change(int index) {
  if (blocked()) {
    return;
  }
  const std::string mnemonic = protocol::channelMnemonic("VP", index);
  link_.transKcmd(mnemonic + protocol::hexArgument(form_.sldPosV[index].value()) + ";" + mnemonic +
                  "??;TLV??");
}

void ScopeControls::chkHat_Click() {
  if (!blocked()) {
    link_.transUsbOnly(checked(form_.chkHat) ? "HDVat;HDV??" : "HDVmn;HDV??");
  }
}

void ScopeControls::chkAt_Click() {
  if (blocked()) {
    return;
  }
  state_.rxHold = false;
  link_.transKcmd(checked(form_.chkAt) ? "TRGat;TRG??" : "TRGnr;TRG??");
}

void ScopeControls::chkSgl_Click() {
  if (blocked()) {
    return;
  }
  colourCaption(form_.chkSgl);
  link_.transKcmd(checked(form_.chkSgl) ? "TRGso;STS??" : "TRGsf;STS??");
}

void ScopeControls::cmdTud_Click(int index) {
  if (!blocked()) {
    link_.transKcmd(index == 0 ? "HDVup;HDV??" : "HDVdn;HDV??");
  }
}

void ScopeControls::cmdSlp_Click() {
  if (blocked()) {
    return;
  }
  const bool rising = form_.cmdSlp.caption() != "+";
  form_.cmdSlp.setCaption(rising ? "+" : "-");
  link_.transKcmd(rising ? "TRGl+;TRG??" : "TRGl-;TRG??");
}

void ScopeControls::optTS_Click(int index) {
  if (blocked()) {
    return;
  }
  form_.posT.setVisible(index != 2);
  const char* const sources[] = {"TRGsa", "TRGsb", "TRGse"};
  std::string command = std::string(sources[index]) + ";TRG??";
  if (!state_.initBusy) {
    command += ";TLV" + protocol::hexArgument(form_.trgLvl.value() ^ 255);
  }
  link_.transKcmd(command + ";TLV??");
}

void ScopeControls::sldPosH_Change() {
  if (!blocked()) {
    link_.transKcmd("HPO" + protocol::hexArgument(form_.sldPosH.value()) + ";HPO??");
  }
}

void ScopeControls::trgLvl_Change() {
  if (!blocked() && !state_.initBusy) {
    link_.transKcmd("TLV" + protocol::hexArgument(form_.trgLvl.value() ^ 255) + ";TLV??");
  }
}

void ScopeControls::cmdSud_Click(int index) {
  int& span = state_.labels.trdSpan;
  span = std::clamp(index == 0 ? span - 1 : span + 1, 0, 11);
  form_.lblStm.setCaption(state_.labels.trdSpanLbl[static_cast<std::size_t>(span)]);
}

}  // namespace vireon::scope
