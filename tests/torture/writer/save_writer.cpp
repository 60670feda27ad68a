#include "adapters/posix/posix_file_store.h"
#include "tests/torture/saving_program.h"

// Saves one file of a kind into a folder and tells by its exit code what the user was told: 0 that it was
// saved, 3 that it was not, 4 anything else.
int main(int argc, char** argv) {
  if (argc != 3) {
    return 2;
  }
  vireon::adapters::PosixFileStore files;
  switch (vireon::tests::SavingProgram(files, argv[2]).save(argv[1])) {
    case vireon::tests::SaveOutcome::kSaved:
      return 0;
    case vireon::tests::SaveOutcome::kTold:
      return 3;
    case vireon::tests::SaveOutcome::kOther:
      break;
  }
  return 4;
}
