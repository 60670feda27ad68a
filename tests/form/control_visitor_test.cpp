#include "form/control_visitor.h"

#include <gtest/gtest.h>

namespace vireon::form {
namespace {

// Writes down as which kind it met each control.
class KindList final : public ControlVisitor {
 public:
  void visit(Button& control) override { met("Button", control); }
  void visit(CheckBox& control) override { met("CheckBox", control); }
  void visit(OptionButton& control) override { met("OptionButton", control); }
  void visit(Label& control) override { met("Label", control); }
  void visit(TextBox& control) override { met("TextBox", control); }
  void visit(ComboBox& control) override { met("ComboBox", control); }
  void visit(Slider& control) override { met("Slider", control); }
  void visit(ProgressBar& control) override { met("ProgressBar", control); }
  void visit(PictureBox& control) override { met("PictureBox", control); }
  void visit(Shape& control) override { met("Shape", control); }
  void visit(Timer& control) override { met("Timer", control); }
  void visit(TabControl& control) override { met("TabControl", control); }
  void visit(StatusBar& control) override { met("StatusBar", control); }
  void visit(Grid& control) override { met("Grid", control); }

  std::vector<std::string> kinds;

 private:
  void met(const std::string& kind, const Control& control) { kinds.push_back(kind + " " + control.name()); }
};

TEST(ControlVisitor, MeetsEachControlAsTheKindThatItIs) {
  Form form("window");
  const Button button(form, "a");
  const CheckBox checkBox(form, "b");
  const OptionButton option(form, "c");
  const Label label(form, "d");
  const TextBox textBox(form, "e");
  const ComboBox comboBox(form, "f");
  const Slider slider(form, "g");
  const ProgressBar progressBar(form, "h");
  const PictureBox pictureBox(form, "i");
  const Shape shape(form, "j");
  const Timer timer(form, "k");
  const TabControl tabControl(form, "l");
  const StatusBar statusBar(form, "m");
  const Grid grid(form, "n");
  KindList list;
  for (Control* control : form.controls()) {
    control->accept(list);
  }
  EXPECT_EQ(list.kinds,
            (std::vector<std::string>{"Button a", "CheckBox b", "OptionButton c", "Label d", "TextBox e",
                                      "ComboBox f", "Slider g", "ProgressBar h", "PictureBox i", "Shape j",
                                      "Timer k", "TabControl l", "StatusBar m", "Grid n"}));
}

}  // namespace
}  // namespace vireon::form
