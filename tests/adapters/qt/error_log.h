#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

namespace vireon::tests {

// Fails each test during which the toolkit logged a warning or worse.
class ErrorLogListener : public testing::EmptyTestEventListener {
 public:
  ErrorLogListener();
  void OnTestStart(const testing::TestInfo& test) override;
  void OnTestEnd(const testing::TestInfo& test) override;

 private:
  static QStringList& lines();
};

}  // namespace vireon::tests
