#include "project/windows/SolverKeys.h"

#include "platform/desktop/Manual.h"
#include "platform/qt/Form.h"
#include "project/UndoRedo.h"

#include <QKeySequence>
#include <QList>
#include <QShortcut>

namespace plenair {

namespace {

// The keys that the desktop has for it, and those that most have.
QList<QKeySequence> Keys(QKeySequence::StandardKey standard, const QList<QKeySequence>& usual) {
    QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
    for (const QKeySequence& key : usual) {
        if (!keys.contains(key)) {
            keys.append(key);
        }
    }
    return keys;
}

} // namespace

void AddSolverKeys(Form& form, const ProjectWindows& windows, const std::string& page) {
    form.AddKeys(Keys(QKeySequence::Undo, {Qt::CTRL | Qt::Key_Z}), [windows] { Undo(windows); });
    form.AddKeys(Keys(QKeySequence::Redo, {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}),
                 [windows] { Redo(windows); });
    form.AddKeys({Qt::Key_F1}, [page] { ShowManual(page); })->setAutoRepeat(false);
}

} // namespace plenair
