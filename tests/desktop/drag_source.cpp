// A window in the corner of the display. Whoever presses the mouse on it drags the files that are
// named as arguments. Prints "taken" where what is below the mouse would take a copy of them, and
// stays: who takes them asks for their names only when they are dropped.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>
#include <cstdio>

namespace {

constexpr int kSide = 40;

class Source : public QWidget {
 public:
    explicit Source(const QStringList& files) {
        for (const QString& file : files) {
            urls_.append(QUrl::fromLocalFile(file));
        }
        // Nobody places it, and it is above all else.
        setWindowFlags(Qt::Window | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint);
        setWindowTitle(QStringLiteral("Files to drag"));
        setGeometry(0, 0, kSide, kSide);
    }

 protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {
        auto* const data = new QMimeData;
        data->setUrls(urls_);
        auto* const drag = new QDrag(this);
        drag->setMimeData(data);
        connect(drag, &QDrag::actionChanged, drag, [](Qt::DropAction action) {
            std::puts(action == Qt::CopyAction ? "taken" : "not taken");
            std::fflush(stdout);
        });
        drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    }

 private:
    QList<QUrl> urls_;
};

}  // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    Source source(QApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}
