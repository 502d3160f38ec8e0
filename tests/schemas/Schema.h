/// A JSON Schema of the repository.
#pragma once

#include <QJsonValue>
#include <QString>
#include <memory>

namespace schemas {

class Schema {
  public:
    /// @param file relative to the repository. A file that is no schema throws.
    explicit Schema(const QString& file);
    ~Schema();

    bool accepts(const QJsonValue& value) const;
    /// @return empty for a value that the schema accepts, or the first thing that is wrong.
    QString refusal(const QJsonValue& value) const;

  private:
    struct Data;
    std::unique_ptr<Data> d;
};

/// @param file relative to the repository.
QJsonValue contents(const QString& file);

}  // namespace schemas
