#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/TempFolder.h"
#include "tables/TableError.h"

namespace pescavo {

// The refusal's message, or "no error".
template <typename Error = TableError, typename Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace pescavo
