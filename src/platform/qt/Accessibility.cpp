#include "platform/qt/Accessibility.h"

#include "platform/qt/Form.h"
#include "platform/qt/MSFlexGrid.h"
#include "platform/qt/PictureBox.h"
#include "platform/qt/QtText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace plenair {

namespace {

// Something in a widget that is no widget itself: number `Index` of those that the widget tells of.
class AccessibleItem : public QAccessibleInterface {
  public:
    AccessibleItem(QWidget* owner, int index) : m_owner(owner), m_index(index) {}

    bool isValid() const override { return m_owner != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_owner); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.invisible = !m_owner->isVisible();
        return state;
    }

    int Index() const { return m_index; }

  protected:
    template <typename Widget>
    Widget& Owner() const {
        return static_cast<Widget&>(*m_owner);
    }
    QRect OnScreen(const QRect& inOwner) const {
        return {m_owner->mapToGlobal(inOwner.topLeft()), inOwner.size()};
    }

  private:
    QPointer<QWidget> m_owner;
    int m_index;
};

// A widget with items of one kind, which are made when they are first asked for.
template <typename Item>
class WithItems : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    ~WithItems() override {
        for (const QAccessible::Id id : std::as_const(m_items)) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        auto item = m_items.constFind(index);
        if (item == m_items.constEnd()) {
            item = m_items.insert(index, QAccessible::registerAccessibleInterface(new Item(widget(), index)));
        }
        return QAccessible::accessibleInterface(*item);
    }
    int indexOfChild(const QAccessibleInterface* of) const override {
        const auto* item = dynamic_cast<const Item*>(of);
        return item != nullptr ? item->Index() : -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

  private:
    mutable QHash<int, QAccessible::Id> m_items;
};

class AccessibleCell : public AccessibleItem, public QAccessibleTableCellInterface {
  public:
    using AccessibleItem::AccessibleItem;

    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return ToQt(Grid().TextMatrix(rowIndex(), columnIndex()));
        case QAccessible::Description:
            return Grid().ColHeading(columnIndex());
        default:
            return {};
        }
    }
    QRect rect() const override { return OnScreen(Grid().CellPlace(rowIndex(), columnIndex())); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override { return false; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return Index() % Grid().Columns(); }
    int rowIndex() const override { return Index() / Grid().Columns(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    const MSFlexGrid& Grid() const { return Owner<MSFlexGrid>(); }
};

class AccessibleTable : public WithItems<AccessibleCell>, public QAccessibleTableInterface {
  public:
    explicit AccessibleTable(MSFlexGrid* grid) : WithItems(grid, QAccessible::Table) {}

    int childCount() const override { return rowCount() * columnCount(); }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : WithItems::interface_cast(type);
    }

    QAccessibleInterface* cellAt(int row, int column) const override {
        return column >= 0 && column < columnCount() ? child(row * columnCount() + column) : nullptr;
    }
    int rowCount() const override { return Grid().RowsSeen(); }
    int columnCount() const override { return Grid().Columns(); }
    QString columnDescription(int column) const override { return Grid().ColHeading(column); }
    QString rowDescription(int) const override { return {}; }

    // Nothing can be selected.
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    const MSFlexGrid& Grid() const { return static_cast<const MSFlexGrid&>(*widget()); }
};

class AccessibleListItem : public AccessibleItem {
  public:
    using AccessibleItem::AccessibleItem;

    bool isValid() const override {
        return AccessibleItem::isValid() && Index() < Owner<PictureBox>().ItemCount();
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? ToQt(Owner<PictureBox>().ItemText(Index())) : QString();
    }
    QRect rect() const override { return OnScreen(Owner<PictureBox>().rect()); }
};

class AccessiblePicture : public WithItems<AccessibleListItem> {
  public:
    explicit AccessiblePicture(PictureBox* picture) : WithItems(picture, QAccessible::List) {}

    int childCount() const override { return static_cast<const PictureBox&>(*widget()).ItemCount(); }
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    if (auto* form = qobject_cast<Form*>(object)) {
        const bool isDialog = (form->windowFlags() & Qt::WindowType_Mask) == Qt::Dialog;
        return new QAccessibleWidget(form, isDialog ? QAccessible::Dialog : QAccessible::Window);
    }
    if (auto* grid = qobject_cast<MSFlexGrid*>(object)) {
        return new AccessibleTable(grid);
    }
    if (auto* picture = qobject_cast<PictureBox*>(object)) {
        return new AccessiblePicture(picture);
    }
    if (QLatin1String(object->metaObject()->className()).endsWith(QLatin1String("Picture"))) {
        return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Graphic);
    }
    return nullptr; // as the toolkit sees it
}

} // namespace

void InstallAccessibility() {
    QAccessible::installFactory(Make);
}

} // namespace plenair
