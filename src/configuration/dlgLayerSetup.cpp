#include "configuration/dlgLayerSetup.h"

#include "configuration/ClassStyleBox.h"
#include "configuration/ColourChoice.h"
#include "configuration/LabelSettingsBox.h"
#include "model/layer.h"
#include "protocol/FieldTypes.h"
#include "render/OleColor.h"
#include "ui/FieldKeyFilter.h"
#include "ui/UiServices.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <utility>

namespace orbelan {

namespace {

const QString kNone = QStringLiteral("<None>");
const QString kNewValue = QStringLiteral("<<New>>");
// cbQtyClasses lists class counts from this one on.
constexpr int kFewestClasses = 2;
constexpr int kMostClassesListed = 25;

bool isRealType(std::int16_t type)
{
    constexpr std::array<std::int16_t, 4> kReal = {4, 5, 14, 131};
    return std::ranges::find(kReal, type) != kReal.end();
}

template <typename Widget>
Widget* named(const char* name, Widget* widget)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QPushButton* button(const char* name, const QString& text, QWidget* parent)
{
    return named(name, new QPushButton(text, parent));
}

// Index set without its change handler running.
void setQuietly(QComboBox& box, int index)
{
    const QSignalBlocker quiet(&box);
    box.setCurrentIndex(index);
}

std::int32_t rampColourOf(const Theme& theme, TipoLayer kind)
{
    return kind == polygonlayer ? theme.FillColor : theme.DrawColor;
}

} // namespace

dlgLayerSetup::dlgLayerSetup(const layer& source, float currentHeight, UiServices& ui, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgLayerSetup"),
                     QStringLiteral("Configuración del Layer: ") + QString::fromStdString(source.Nombre), parent),
      ui_(ui),
      layerId_(source.IDLayer),
      kind_(source.Tipo),
      themeField_(named("cbThemeField", new QComboBox(this))),
      method_(named("cbThemeMethod", new QComboBox(this))),
      count_(named("cbQtyClasses", new QComboBox(this))),
      query_(button("cmdQrySvr", QStringLiteral("Query Server"), this)),
      classList_(named("lstThemeClasses", new QListWidget(this))),
      min_(named("txtMin", new QLineEdit(this))),
      max_(named("txtMax", new QLineEdit(this))),
      new_(button("cmdNewClass", QStringLiteral("New"), this)),
      change_(button("cmdChangeValues", QStringLiteral("Change"), this)),
      delete_(button("cmdDeleteClass", QStringLiteral("Delete"), this)),
      swatches_{named("shpColor0", new QLineEdit(this)), named("ShpColor1", new QLineEdit(this))},
      style_(new ClassStyleBox(source.Tipo, ui, [this] { restyleClass(); }, this)),
      labels_(new LabelSettingsBox(source, currentHeight, ui, [this] { chooseLabelField(); }, this))
{
    auto* columns = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(themePart());
    left->addWidget(classPart());
    left->addWidget(rampPart());
    auto* right = new QVBoxLayout;
    right->addWidget(style_);
    right->addWidget(labels_);
    right->addStretch();
    columns->addLayout(left);
    columns->addLayout(right);
    fields().addLayout(columns);
    load(source);
}

dlgLayerSetup::~dlgLayerSetup() = default;

QWidget* dlgLayerSetup::themePart()
{
    auto* part = new QWidget(this);
    auto* form = new QFormLayout(part);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(QStringLiteral("Theme field:"), themeField_);
    form->addRow(QStringLiteral("Method:"), method_);
    form->addRow(QStringLiteral("Classes:"), count_);
    form->addRow(query_);
    connect(themeField_, &QComboBox::currentIndexChanged, this, &dlgLayerSetup::chooseThemeField);
    connect(method_, &QComboBox::currentIndexChanged, this, &dlgLayerSetup::chooseMethod);
    connect(count_, &QComboBox::currentIndexChanged, this, [this] {
        if (!quiet_) {
            rebuildClasses();
        }
    });
    connect(query_, &QPushButton::clicked, this, [this] { done(kQueryServer); });
    return part;
}

QWidget* dlgLayerSetup::classPart()
{
    auto* part = new QWidget(this);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(classList_);
    auto* bounds = new QFormLayout;
    bounds->addRow(QStringLiteral("From:"), min_);
    bounds->addRow(QStringLiteral("To:"), max_);
    column->addLayout(bounds);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* action : {new_, change_, delete_}) {
        buttons->addWidget(action);
    }
    column->addLayout(buttons);
    min_->installEventFilter(this);
    max_->installEventFilter(this);
    connect(classList_, &QListWidget::currentRowChanged, this, &dlgLayerSetup::selectClass);
    connect(new_, &QPushButton::clicked, this, &dlgLayerSetup::newClass);
    connect(change_, &QPushButton::clicked, this, &dlgLayerSetup::changeValues);
    connect(delete_, &QPushButton::clicked, this, &dlgLayerSetup::deleteClass);
    return part;
}

QWidget* dlgLayerSetup::rampPart()
{
    auto* part = new QWidget(this);
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    for (const bool last : {false, true}) {
        QLineEdit* swatch = swatches_[last];
        swatch->setReadOnly(true);
        swatch->setMaximumWidth(72);
        auto* choose = button(last ? "cmdColor1" : "cmdColor0", last ? QStringLiteral("To...") : QStringLiteral("From..."),
                              part);
        row->addWidget(choose);
        row->addWidget(swatch);
        connect(choose, &QPushButton::clicked, this, [this, last] { chooseRampColour(last); });
        connect(swatch, &QLineEdit::textChanged, this, [this, last](const QString& text) { typeRampColour(last, text); });
    }
    return part;
}

void dlgLayerSetup::load(const layer& source)
{
    for (const Campo& field : source.Campos()) {
        fieldNames_ << QString::fromStdString(field.Nombre);
        fieldTypes_.push_back(field.Tipo);
    }
    for (const Theme& theme : source.ThematicMap()) {
        addClass(themes_, theme, theme.min, theme.max);
    }
    if (themes_.count() >= 2) {
        ramp_[0] = rampColourOf(*themes_.Item(2), kind_);
        ramp_[1] = rampColourOf(*themes_.Item(themes_.count()), kind_);
    }
    themeField_->addItem(kNone);
    themeField_->addItems(fieldNames_);
    const auto sameName = [&](const QString& name) {
        return name.compare(QString::fromStdString(source.ThematicField), Qt::CaseInsensitive) == 0;
    };
    const auto found = std::ranges::find_if(fieldNames_, sameName);
    themeField_->setCurrentIndex(found == fieldNames_.end() ? 0 : 1 + static_cast<int>(found - fieldNames_.begin()));
    method_->addItems({QStringLiteral("None"), QStringLiteral("Lista de Valores"), QStringLiteral("Rangos")});
    method_->setCurrentIndex(std::clamp<int>(source.ThematicType, 0, 2));
    for (int classes = kFewestClasses; classes <= kMostClassesListed; ++classes) {
        count_->addItem(QString::number(classes));
    }
    for (const bool last : {false, true}) {
        paintSwatch(*swatches_[last], ramp_[last]);
    }
    showCount();
    followMethod();
    followFieldType();
    change_->setEnabled(false);
    showClasses(0);
    quiet_ = false;
}

QString dlgLayerSetup::themeField() const
{
    return themeField_->currentText();
}

ThemeMethod dlgLayerSetup::method() const
{
    return static_cast<ThemeMethod>(std::max(method_->currentIndex(), 0));
}

void dlgLayerSetup::Stats(std::vector<std::string> values)
{
    statistics_ = std::move(values);
    rebuildClasses();
}

LayerStyle dlgLayerSetup::takeStyle()
{
    LayerStyle style;
    style.thematicField = themeField_->currentIndex() > 0 ? themeField_->currentText().toStdString() : std::string();
    style.method = method();
    style.thematicFieldType = fieldType();
    style.classes = std::move(themes_);
    labels_->writeTo(style);
    return style;
}

// A box that shows "<<New>>" empties as it takes the focus; any other
// value is selected whole.
bool dlgLayerSetup::eventFilter(QObject* watched, QEvent* event)
{
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (event->type() == QEvent::FocusIn && (box == min_ || box == max_)) {
        if (box->text() == kNewValue) {
            box->clear();
        } else {
            box->selectAll();
        }
    }
    return OkCancelDialog::eventFilter(watched, event);
}

void dlgLayerSetup::chooseMethod()
{
    if (quiet_) {
        return;
    }
    const std::int16_t type = fieldType();
    if (method() == ThemeMethod::ValueList && isRealType(type)) {
        invalid(QStringLiteral("Invalid"));
        setQuietly(*method_, static_cast<int>(ThemeMethod::Ranges));
    } else if (method() == ThemeMethod::Ranges && IsTextFieldType(type)) {
        invalid(QStringLiteral("Invalid"));
        setQuietly(*method_, static_cast<int>(ThemeMethod::ValueList));
    }
    followMethod();
    statistics_.clear();
    rebuildClasses();
}

void dlgLayerSetup::chooseThemeField()
{
    if (quiet_) {
        return;
    }
    if (sameFieldTwice()) {
        invalid(QStringLiteral("El campo del Tema debe ser distinto al campo de la Etiqueta"));
        setQuietly(*themeField_, 0);
    }
    followFieldType();
    statistics_.clear();
    rebuildClasses();
}

void dlgLayerSetup::chooseLabelField()
{
    if (sameFieldTwice()) {
        invalid(QStringLiteral("El campo del Tema debe ser distinto al campo de la Etiqueta"));
        labels_->clearField();
    }
}

void dlgLayerSetup::followMethod()
{
    const ThemeMethod chosen = method();
    count_->setEnabled(chosen == ThemeMethod::Ranges);
    query_->setEnabled(chosen != ThemeMethod::None);
    new_->setEnabled(chosen != ThemeMethod::None);
}

// The bounds take the keys the theme field's type can hold.
void dlgLayerSetup::followFieldType()
{
    delete minFilter_;
    delete maxFilter_;
    minFilter_ = new FieldKeyFilter(fieldType(), *min_);
    maxFilter_ = new FieldKeyFilter(fieldType(), *max_);
}

bool dlgLayerSetup::sameFieldTwice() const
{
    return themeField_->currentIndex() > 0 &&
           themeField_->currentText().compare(labels_->field(), Qt::CaseInsensitive) == 0;
}

void dlgLayerSetup::invalid(const QString& text)
{
    ui_.messageBox(this, text, MessageButtons::OK, MessageIcon::None, windowTitle());
}

std::int16_t dlgLayerSetup::fieldType() const
{
    const int field = themeField_->currentIndex() - 1;
    return field >= 0 && field < static_cast<int>(fieldTypes_.size()) ? fieldTypes_[static_cast<std::size_t>(field)]
                                                                        : std::int16_t{0};
}

void dlgLayerSetup::rebuildClasses()
{
    const bool counted = count_->currentIndex() >= 0;
    buildClasses(themes_, {.method = method(),
                           .statistics = statistics_,
                           .ranges = counted ? count_->currentText().toInt() : 0,
                           .style = style_->style(),
                           .firstColour = ramp_[0],
                           .lastColour = ramp_[1],
                           .kind = kind_});
    showCount();
    showClasses(0);
}

// The count entry of the classes there are, the default left out; the list
// grows to hold it.
void dlgLayerSetup::showCount()
{
    const int index = themes_.count() - 3;
    if (index < 0) {
        return;
    }
    while (count_->count() <= index) {
        count_->addItem(QString::number(count_->count() + kFewestClasses));
    }
    setQuietly(*count_, index);
}

void dlgLayerSetup::showClasses(int selectedRow)
{
    {
        const QSignalBlocker quiet(classList_);
        classList_->clear();
        for (const Theme& theme : themes_) {
            if (classList_->count() == 0) {
                classList_->addItem(QStringLiteral("<Default>"));
            } else if (method() == ThemeMethod::Ranges) {
                classList_->addItem(QString::fromStdString(theme.min) + QStringLiteral(" to ") +
                                    QString::fromStdString(theme.max));
            } else {
                classList_->addItem(QString::fromStdString(theme.min));
            }
        }
    }
    classList_->setCurrentRow(std::min(selectedRow, classList_->count() - 1));
    selectClass(classList_->currentRow());
}

void dlgLayerSetup::selectClass(int row)
{
    const Theme* theme = themes_.Item(row + 1);
    if (theme == nullptr) {
        return;
    }
    min_->setText(QString::fromStdString(theme->min));
    max_->setText(QString::fromStdString(theme->max));
    style_->showStyle(*theme);
}

Theme* dlgLayerSetup::selectedClass()
{
    return themes_.Item(classList_->currentRow() + 1);
}

void dlgLayerSetup::restyleClass()
{
    if (Theme* theme = selectedClass()) {
        copyStyle(*theme, style_->style());
    }
}

void dlgLayerSetup::newClass()
{
    addClass(themes_, style_->style(), kNewValue.toStdString(), kNewValue.toStdString());
    showClasses(themes_.count() - 1);
    change_->setEnabled(true);
}

void dlgLayerSetup::changeValues()
{
    Theme* theme = selectedClass();
    if (theme == nullptr) {
        return;
    }
    theme->min = min_->text().toStdString();
    if (method() == ThemeMethod::Ranges) {
        theme->max = max_->text().toStdString();
    }
    showClasses(0);
    change_->setEnabled(false);
}

void dlgLayerSetup::deleteClass()
{
    const int row = classList_->currentRow();
    if (row <= 0 || !themes_.Remove(row + 1)) {
        return;
    }
    if (count_->currentIndex() > 0) {
        setQuietly(*count_, count_->currentIndex() - 1);
    }
    showClasses(row);
}

void dlgLayerSetup::chooseRampColour(bool last)
{
    if (const auto chosen = chooseColour(ui_, this, ramp_[last])) {
        paintSwatch(*swatches_[last], *chosen);
    }
}

// The swatch's text is the colour: a script may type it.
void dlgLayerSetup::typeRampColour(bool last, const QString& text)
{
    const QColor colour = QColor::fromString(text);
    if (colour.isValid()) {
        ramp_[last] = static_cast<std::int32_t>(olecolor::fromQColor(colour));
        paintSwatch(*swatches_[last], ramp_[last]);
    }
}

} // namespace orbelan
