#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/scope/scope_rig.h"

namespace vireon::scope {
namespace {

// Where a header field shows, spoilt by hand to see whether the field is handed on.
struct Field {
  const char* key;
  std::function<void(tests::WaveformFields&)> change;
  std::function<void(form::MainForm&)> spoil;
  std::function<std::string(const form::MainForm&)> shown;
  const char* spoilt;
  const char* changed;  // shown after the change
};

std::vector<Field> fields() {
  using Form = form::MainForm;
  using Wave = tests::WaveformFields;
  return {
      {"dfn", [](Wave& f) { f.dfn = "01"; }, [](Form& f) { f.cmbFun.setListIndex(7); },
       [](const Form& f) { return std::to_string(f.cmbFun.listIndex()); }, "7", "1"},
      {"vda", [](Wave& f) { f.vda = "46"; }, [](Form& f) { f.lblVd[0].setCaption("x"); },
       [](const Form& f) { return f.lblVd[0].caption(); }, "x", "5V"},
      {"vdb", [](Wave& f) { f.vdb = "47"; }, [](Form& f) { f.lblVd[1].setCaption("x"); },
       [](const Form& f) { return f.lblVd[1].caption(); }, "x", "10V"},
      {"hdv", [](Wave& f) { f.hdv = "0A"; }, [](Form& f) { f.lblHd.setCaption("x"); },
       [](const Form& f) { return f.lblHd.caption(); }, "x", "2mS"},
      {"vpa", [](Wave& f) { f.vpa = "31"; }, [](Form& f) { f.sldPosV[0].setValue(0); },
       [](const Form& f) { return std::to_string(f.sldPosV[0].value()); }, "0", "49"},
      {"vpb", [](Wave& f) { f.vpb = "51"; }, [](Form& f) { f.sldPosV[1].setValue(0); },
       [](const Form& f) { return std::to_string(f.sldPosV[1].value()); }, "0", "81"},
      {"trg", [](Wave& f) { f.trg = "24"; }, [](Form& f) { f.lblSinf[5].setCaption("x"); },
       [](const Form& f) { return f.lblSinf[5].caption(); }, "x", "Auto"},
      {"tlv", [](Wave& f) { f.tlv = "41"; }, [](Form& f) { f.trgLvl.setValue(1); },
       [](const Form& f) { return std::to_string(f.trgLvl.value()); }, "1", "190"},
      {"hpo", [](Wave& f) { f.hpo = "3F"; }, [](Form& f) { f.sldPosH.setValue(0); },
       [](const Form& f) { return std::to_string(f.sldPosH.value()); }, "0", "63"},
      {"flag", [](Wave& f) { f.flags = '2'; }, [](Form& f) { f.posDV[1].setCaption("x"); },
       [](const Form& f) { return f.posDV[1].caption(); }, "x", "REF"},
  };
}

class WaveformSettings : public tests::ScopeRig {
 protected:
  void draw() { take(frame_.bytes()); }

  void spoilAll() {
    for (const Field& field : fields()) {
      field.spoil(form);
    }
  }

  tests::WaveformFields frame_;
};

TEST_F(WaveformSettings, TheFirstFrameHandsEveryFieldOn) {
  spoilAll();
  draw();
  for (const Field& field : fields()) {
    EXPECT_NE(field.shown(form), field.spoilt) << field.key;
  }
}

TEST_F(WaveformSettings, AnEqualHeaderHandsNothingOn) {
  draw();
  spoilAll();
  frame_.a = tests::WaveformFields::ramp(30);
  frame_.reading = "OTHER     ";
  draw();
  for (const Field& field : fields()) {
    EXPECT_EQ(field.shown(form), field.spoilt) << field.key;
  }
}

TEST_F(WaveformSettings, AChangedFieldIsHandedOnAlone) {
  const std::vector<Field> all = fields();
  for (const Field& changed : all) {
    tests::ScopeParts parts;
    tests::WaveformFields frame;
    parts.take(frame.bytes());
    for (const Field& field : all) {
      field.spoil(parts.form);
    }
    changed.change(frame);
    parts.take(frame.bytes());
    for (const Field& field : all) {
      const bool isThis = field.key == changed.key;
      EXPECT_EQ(field.shown(parts.form), isThis ? field.changed : field.spoilt) << changed.key << field.key;
    }
  }
}

TEST_F(WaveformSettings, EitherOfTheTwoCharactersIsAChange) {
  draw();
  form.lblVd[0].setCaption("x");
  frame_.vda = "64";
  draw();
  EXPECT_EQ(form.lblVd[0].caption(), "1V");
  form.lblVd[0].setCaption("x");
  frame_.vda = "65";
  draw();
  EXPECT_EQ(form.lblVd[0].caption(), "2V");
}

TEST_F(WaveformSettings, AFieldThatChangesBackIsHandedOnAgain) {
  draw();
  frame_.hdv = "0A";
  draw();
  frame_.hdv = "09";
  draw();
  EXPECT_EQ(form.lblHd.caption(), "1mS");
}

TEST_F(WaveformSettings, FieldsAreHandedOnInTheOrderOfTheFrameBetweenMarkerAndTraces) {
  draw();
  for (const Field& field : fields()) {
    field.change(frame_);
  }
  frame_.a[50] = 99;  // where the trigger point is
  frame_.reading = "OTHER     ";
  for (std::size_t i = 0; i < frame_.a.size(); ++i) {
    frame_.a[i] = static_cast<std::uint8_t>(frame_.a[i] + 1);
  }
  spoilAll();
  tests::RecordingView view;
  form.setView(&view);
  draw();
  std::vector<std::string> order;
  for (const std::string& name : view.changes) {
    const bool probed = name == "cmbFun" || name.starts_with("lblVd_") || name == "lblHd" ||
                        name.starts_with("sldPos") || name == "lblSinf_5" || name == "trgLvl" ||
                        name == "picScope" || name == "lblDmm";
    if (probed && (order.empty() || order.back() != name)) {
      order.push_back(name);
    }
  }
  EXPECT_EQ(order,
            (std::vector<std::string>{"cmbFun", "lblVd_0", "lblVd_1", "lblHd", "sldPosV_0", "sldPosV_1",
                                      "lblSinf_5", "trgLvl", "sldPosH", "picScope", "lblDmm"}));
  EXPECT_EQ(view.changes.front(), "markT");
}

TEST_F(WaveformSettings, TheLevelMarkerFollowsThePositionOfTheSameFrame) {
  frame_.vpa = "40";
  frame_.trg = "00";
  frame_.tlv = "80";
  draw();
  EXPECT_EQ(form.posT.top(), (64 - 21) * 30 + 330);
}

TEST_F(WaveformSettings, AFaultyFieldIsPassedOverAndTheRestOfTheFrameCounts) {
  frame_.vda = "ZZ";
  frame_.vdb = "4F";
  frame_.hdv = "1F";
  draw();
  EXPECT_EQ(form.lblVd[0].caption(), "");
  EXPECT_EQ(form.lblVd[1].caption(), "");
  EXPECT_EQ(form.lblHd.caption(), "");
  EXPECT_EQ(form.sldPosV[0].value(), 0x30);
  EXPECT_EQ(form.sldPosH.value(), 0x3E);
  EXPECT_EQ(form.lblDmm.caption(), frame_.reading);
}

TEST_F(WaveformSettings, AFaultyFieldIsRememberedLikeAnyOther) {
  draw();
  frame_.vda = "4F";
  draw();
  form.lblVd[0].setCaption("x");
  draw();
  EXPECT_EQ(form.lblVd[0].caption(), "x");
  frame_.vda = "44";
  draw();
  EXPECT_EQ(form.lblVd[0].caption(), "1V");
}

TEST_F(WaveformSettings, ALoggerModeInTheHeaderShowsTheMeterTab) {
  frame_.dfn = "10";
  draw();
  EXPECT_EQ(form.SSTab1.tab(), 1);
  EXPECT_EQ(form.cmbDmod.listIndex(), 0);
  frame_.dfn = "00";
  draw();
  EXPECT_EQ(form.SSTab1.tab(), 0);
}

TEST_F(WaveformSettings, TheFlagBytesBitValue2NamesTheReferenceTrace) {
  struct FlagCase {
    int byte;
    const char* caption;
  };
  const FlagCase cases[] = {{'2', "REF"}, {'0', "CHB"}, {'3', "REF"}, {'1', "CHB"}, {0, "CHB"},
                            {2, "REF"},   {253, "CHB"}, {254, "REF"}, {255, "REF"}, {4, "CHB"}};
  for (const FlagCase& expected : cases) {
    frame_.flags = static_cast<char>(expected.byte);
    form.posDV[1].setCaption("x");
    draw();
    EXPECT_EQ(form.posDV[1].caption(), expected.caption) << expected.byte;
  }
}

TEST_F(WaveformSettings, AFlagByteOfZeroInTheFirstFrameIsAChange) {
  form.posDV[1].setCaption("x");
  frame_.flags = '\0';
  draw();
  EXPECT_EQ(form.posDV[1].caption(), "CHB");
}

TEST_F(WaveformSettings, BytesThatAreNotInterpretedChangeNothing) {
  draw();
  tests::FrameBytes frame = frame_.bytes();
  for (const std::size_t index : {0U, 4U, 5U, 6U, 23U, 24U, 28U}) {
    frame[index] ^= 0xFFU;
  }
  const auto before = tests::linesOf(form.picScope);
  spoilAll();
  take(frame);
  for (const Field& field : fields()) {
    EXPECT_EQ(field.shown(form), field.spoilt) << field.key;
  }
  EXPECT_EQ(tests::linesOf(form.picScope), before);
}

}  // namespace
}  // namespace vireon::scope
