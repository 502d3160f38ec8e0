/// Tests about missing permissions, which the administrator does not feel.
#pragma once

#include <QString>

namespace testing_support {

/// Makes the administrator's test an ordinary user's to the end of the scope. Does nothing for any
/// other user.
class UnprivilegedUser {
  public:
    /// @param folder temporary folder that stays readable for that user.
    explicit UnprivilegedUser(const QString& folder);
    ~UnprivilegedUser();
    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;

  private:
    unsigned int user = 0;
    unsigned int group = 0;
};

}  // namespace testing_support
