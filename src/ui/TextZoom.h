#pragma once

#include <QObject>

namespace klt {

/// By how many points the text of all documents, or of all fields and previews, is larger than its font says.
/// One for the process, whatever window it is changed in.
class TextZoom : public QObject {
    Q_OBJECT

public:
    enum class Of { Documents, Fields };
    static TextZoom& of(Of which);

    int points() const { return points_; }
    void set(int points);

signals:
    void changed(int points);

private:
    TextZoom() = default;

    int points_ = 0;
};

}  // namespace klt
