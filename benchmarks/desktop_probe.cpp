// What a person waits for in the window: from the click on a class in the tree to the painted preview.
#include "memory_world.h"
#include "report.h"

#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/main_window.h"
#include "support/memory_application.h"

#include <QApplication>
#include <QListView>
#include <QMouseEvent>
#include <QTreeView>

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldrane::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr const char* kUsage = "usage: desktop_probe PROPERTIES ROUNDS";
constexpr auto kHangGuard = std::chrono::seconds(10);

// Sees when a widget has been painted.
class PaintWatch : public QObject
{
  public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }

    bool Painted = false;

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        Painted = Painted || event->type() == QEvent::Paint;
        return false;
    }
};

// The window with a project of one wide class.
class OpenedWindow
{
  public:
    explicit OpenedWindow(std::size_t properties)
    {
        world_.Files.Files[kProjectPath] = DefineInMemory({MakeWideTable(properties)});
        dialogs_.ShowOver(window_);
        rules_.LoadLook();
        window_.show();
        (void)rules_.Load({.File = kProjectPath});
        QApplication::processEvents();
    }

    // How long the tree's node takes to be previewed, in milliseconds.
    double Click(const QModelIndex& node)
    {
        PaintWatch watch(*preview_.viewport());
        tree_.scrollTo(node);
        QApplication::processEvents();
        watch.Painted = false;
        const auto start = std::chrono::steady_clock::now();
        Send(QEvent::MouseButtonPress, Qt::LeftButton, node);
        Send(QEvent::MouseButtonRelease, Qt::NoButton, node);
        while (!watch.Painted && std::chrono::steady_clock::now() - start < kHangGuard)
            QApplication::processEvents();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        if (!watch.Painted)
            throw std::runtime_error("the preview is not painted");
        return taken.count();
    }

    // The node of the class, and the one above, which previews a summary.
    [[nodiscard]] QModelIndex ClassNode() const
    {
        const std::string name = rules_.treMain().Nodes().at(ClassPlace()).Caption;
        return tree_.model()
            ->match(tree_.model()->index(0, 0), Qt::DisplayRole, QString::fromStdString(name), 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }

    [[nodiscard]] int Lines() const { return preview_.model()->rowCount(); }
    [[nodiscard]] std::size_t Entries() const { return rules_.cmbNavigate().size(); }

  private:
    [[nodiscard]] std::size_t ClassPlace() const
    {
        const ProjectTree& nodes = rules_.treMain().Nodes();
        for (std::size_t place = 0; place < nodes.size(); ++place)
            if (nodes[place].Id.Kind == NodeKind::Class && nodes[place].Tag == "Table")
                return place;
        throw std::runtime_error("there is no class of a table");
    }

    void Send(QEvent::Type type, Qt::MouseButtons held, const QModelIndex& node)
    {
        const QPointF where = tree_.visualRect(node).center();
        QMouseEvent event(type, where, tree_.viewport()->mapToGlobal(where), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(tree_.viewport(), &event);
    }

    testing::MemoryApplication world_;
    DesktopDialogs dialogs_;
    CatalogReading reading_{world_.Clock};
    frmMain rules_{world_.World, dialogs_, reading_};
    MainWindow window_{rules_, world_.World};
    QTreeView& tree_ = *window_.findChild<QTreeView*>(u"treMain"_s);
    const QListView& preview_ = window_.PreviewList();
};

void Run(std::size_t properties, int rounds)
{
    OpenedWindow window(properties);
    const QModelIndex node = window.ClassNode();
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        window.Click(node.parent());
        times.push_back(window.Click(node));
    }
    if (static_cast<std::size_t>(window.Lines()) < properties || window.Entries() < properties)
        throw std::runtime_error("the preview shows " + std::to_string(window.Lines()) + " lines of which " +
                                 std::to_string(window.Entries()) + " are members");
    std::printf("%g\n", Median(times));
}

} // namespace
} // namespace veldrane::bench

int main(int argc, char** argv)
{
    try {
        if (argc != 3)
            throw std::runtime_error(veldrane::bench::kUsage);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // The number is all that is printed, whatever Qt misses on this machine.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const QApplication application(argc, argv);
        veldrane::bench::Run(std::stoul(argv[1]), std::stoi(argv[2]));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "desktop_probe: %s\n", error.what());
        return 1;
    }
}
