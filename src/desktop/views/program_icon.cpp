#include "desktop/views/program_icon.h"

// A static library's resources are taken along by name only. The macro works outside of namespaces.
static void InitResources() {
    Q_INIT_RESOURCE(orvik);
}

namespace orvik {

QIcon ProgramIcon() {
    InitResources();
    return QIcon::fromTheme(QStringLiteral("orvik"), QIcon(QStringLiteral(":/icons/orvik.svg")));
}

}  // namespace orvik
