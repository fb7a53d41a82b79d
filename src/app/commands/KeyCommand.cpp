#include "app/commands/KeyCommand.h"

#include <QAction>

#include "app/commands/CommandQueue.h"
#include "app/window/frmMDIKLTEditor.h"

namespace klt {

void addKeyCommand(frmMDIKLTEditor& window, CommandQueue& queue, const char* name, QKeyCombination key,
                   std::function<void(frmKLTEditor&)> run) {
    auto* action = new QAction(&window);
    action->setObjectName(name);
    action->setShortcut(key);
    window.addAction(action);
    QObject::connect(action, &QAction::triggered, &window, [&window, &queue, run = std::move(run)] {
        queue.submit(Origin::User, [&window, run] {
            if (auto* document = window.ActiveForm()) run(*document);
        });
    });
}

}  // namespace klt
