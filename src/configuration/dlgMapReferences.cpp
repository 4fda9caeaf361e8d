#include "configuration/dlgMapReferences.h"

#include "configuration/ClassSymbol.h"
#include "model/MapDocument.h"

#include <QAction>
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>
#include <QToolBar>

#include <algorithm>

namespace orbelan {

namespace {

constexpr int kTwipsPerInch = 1440;
// The geometry of blocks and rows, in twips.
constexpr int kBlockLeft = 60;
constexpr int kBlockGap = 60;
constexpr int kBlockWidth = 3600;
constexpr int kFirstRowTop = 240;
constexpr int kRowGap = 60;
constexpr int kSymbolLeft = 120;
constexpr int kSymbolWidth = 450;
constexpr int kSymbolHeight = 270;
constexpr int kTextGap = 120;
constexpr int kBlockBottomMargin = 120;
constexpr int kScrollBarWidth = 255;
// Room under the tool bar of a collapsed window.
constexpr int kMinimisedMargin = 300;

constexpr std::int16_t kListOfValues = 1;
constexpr std::int16_t kRanges = 2;

QString classText(const layer& mapLayer, const Theme& theme)
{
    switch (mapLayer.ThematicType) {
    case kListOfValues:
        return QString::fromStdString(theme.min);
    case kRanges:
        return QString::fromStdString(theme.min) + QStringLiteral(" to ") + QString::fromStdString(theme.max);
    default:
        return {};
    }
}

} // namespace

dlgMapReferences::dlgMapReferences(QWidget* parent)
    : QWidget(parent, Qt::Tool),
      toolbar_(new QToolBar(this)),
      blocks_(new QWidget(this)),
      scrollBar_(new QScrollBar(Qt::Vertical, this))
{
    setObjectName(QStringLiteral("dlgMapReferences"));
    toolbar_->setObjectName(QStringLiteral("Toolbar1"));
    QAction* camera = toolbar_->addAction(QStringLiteral("Camara"), this, &dlgMapReferences::copyToClipboard);
    camera->setObjectName(QStringLiteral("Camara"));
    minimiseAction_ = toolbar_->addAction(QStringLiteral("Minimizar"), this, &dlgMapReferences::minimise);
    minimiseAction_->setObjectName(QStringLiteral("Minimizar"));
    maximiseAction_ = toolbar_->addAction(QStringLiteral("Maximizar"), this, &dlgMapReferences::maximise);
    maximiseAction_->setObjectName(QStringLiteral("Maximizar"));
    maximiseAction_->setVisible(false);
    scrollBar_->setObjectName(QStringLiteral("VScroll1"));
    scrollBar_->hide();
    connect(scrollBar_, &QScrollBar::valueChanged, this, &dlgMapReferences::scrollTo);

    const int width = kBlockLeft + kBlockWidth + kBlockGap + kScrollBarWidth;
    toolbar_->setGeometry(0, 0, toPixels(width), toolbar_->sizeHint().height());
    frames_.push_back(new QGroupBox(blocks_));
    frames_.front()->setObjectName(QStringLiteral("Frame1"));
    frames_.front()->hide();
    applyLayout();
}

void dlgMapReferences::build(const MapDocument& document, const BoundingBox& view, const QPalette& palette)
{
    clearBlocks();
    const Layers& layers = document.Layers();
    for (std::int32_t position = layers.count(); position >= 1; --position) {
        const layer& mapLayer = *layers.Item(position);
        if (mapLayer.Visible && mapLayer.bb.InterseccionCon(view)) {
            buildBlock(mapLayer, document.BackgroundColor, palette);
        }
    }
    frames_.front()->setVisible(blocksBuilt_ >= 0);
    setWindowTitle(QStringLiteral("Leyendas para: ") + QString::fromStdString(document.Nombre));
    layout_ = LegendLayout::forBlocks(blocksBuilt_ < 0 ? 0 : toolbarTwips() + nextTop_ - kBlockGap);
    applyLayout();
}

int dlgMapReferences::heightInTwips() const { return toTwips(height()); }

int dlgMapReferences::blockTopInTwips(int block) const
{
    return toTwips(frames_.at(static_cast<std::size_t>(block))->y());
}

void dlgMapReferences::minimise()
{
    resize(width(), toPixels(toolbarTwips() + kMinimisedMargin));
    minimiseAction_->setVisible(false);
    maximiseAction_->setVisible(true);
}

void dlgMapReferences::maximise()
{
    applyLayout();
    maximiseAction_->setVisible(false);
    minimiseAction_->setVisible(true);
}

void dlgMapReferences::copyToClipboard()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setPixmap(grab());
}

void dlgMapReferences::clearBlocks()
{
    for (std::size_t frame = 1; frame < frames_.size(); ++frame) {
        delete frames_[frame];
    }
    frames_.resize(1);
    qDeleteAll(frames_.front()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    frameTops_.clear();
    blocksBuilt_ = -1;
    rowsBuilt_ = -1;
    nextTop_ = kBlockGap;
    lastScroll_ = 0;
    const QSignalBlocker quiet(scrollBar_);
    scrollBar_->setValue(0);
}

void dlgMapReferences::buildBlock(const layer& mapLayer, std::uint32_t background, const QPalette& palette)
{
    QGroupBox& frame = nextFrame(QString::fromStdString(mapLayer.Nombre));
    const QSize symbolSize(toPixels(kSymbolWidth), toPixels(kSymbolHeight));
    int rowTop = kFirstRowTop;
    for (const Theme& theme : mapLayer.ThematicMap()) {
        addClassRow(frame, rowTop, classSymbol(theme, mapLayer.Tipo, symbolSize, background, palette),
                    classText(mapLayer, theme));
        rowTop += kSymbolHeight + kRowGap;
    }
    const int height = rowTop - kRowGap + kBlockBottomMargin;
    frame.setGeometry(toPixels(kBlockLeft), toPixels(nextTop_), toPixels(kBlockWidth), toPixels(height));
    frameTops_.push_back(nextTop_);
    nextTop_ += height + kBlockGap;
}

QGroupBox& dlgMapReferences::nextFrame(const QString& caption)
{
    ++blocksBuilt_;
    if (blocksBuilt_ > 0) {
        auto* frame = new QGroupBox(blocks_);
        frame->setObjectName(QStringLiteral("Frame1"));
        frame->show();
        frames_.push_back(frame);
    }
    frames_.back()->setTitle(caption);
    return *frames_.back();
}

void dlgMapReferences::addClassRow(QGroupBox& frame, int top, const QImage& symbol, const QString& text)
{
    ++rowsBuilt_;
    auto* picture = new QLabel(&frame);
    picture->setObjectName(QStringLiteral("picColor"));
    picture->setPixmap(QPixmap::fromImage(symbol));
    picture->setGeometry(toPixels(kSymbolLeft), toPixels(top), symbol.width(), symbol.height());
    auto* description = new QLabel(text, &frame);
    description->setObjectName(QStringLiteral("lblThemeDesc"));
    const int labelLeft = kSymbolLeft + kSymbolWidth + kTextGap;
    const int labelHeight = description->sizeHint().height();
    description->setGeometry(toPixels(labelLeft), picture->y() + (symbol.height() - labelHeight) / 2,
                             toPixels(kBlockWidth - labelLeft - kBlockGap), labelHeight);
    picture->show();
    description->show();
}

void dlgMapReferences::applyLayout()
{
    const int toolbarHeight = toolbar_->height();
    const int formHeight = std::max(toPixels(layout_.formHeight), toolbarHeight);
    resize(toolbar_->width(), formHeight);
    blocks_->setGeometry(0, toolbarHeight, toolbar_->width() - toPixels(kScrollBarWidth),
                         std::max(formHeight - toolbarHeight, toPixels(layout_.totalHeight)));
    scrollBar_->setGeometry(toolbar_->width() - toPixels(kScrollBarWidth), toolbarHeight,
                            toPixels(kScrollBarWidth), toPixels(LegendLayout::kScrollBarHeight));
    scrollBar_->setMaximum(layout_.scrollMaximum);
    scrollBar_->setVisible(layout_.scrolls);
}

void dlgMapReferences::scrollTo(int value)
{
    lastScroll_ = value;
    placeBlocks();
}

void dlgMapReferences::placeBlocks()
{
    const int offset = lastScroll_ * layout_.scrollStep;
    for (std::size_t block = 0; block < frameTops_.size(); ++block) {
        frames_[block]->move(frames_[block]->x(), toPixels(frameTops_[block] - offset));
    }
}

int dlgMapReferences::toPixels(int twips) const
{
    return static_cast<int>(static_cast<long long>(twips) * logicalDpiY() / kTwipsPerInch);
}

int dlgMapReferences::toTwips(int pixels) const
{
    return static_cast<int>(static_cast<long long>(pixels) * kTwipsPerInch / logicalDpiY());
}

int dlgMapReferences::toolbarTwips() const { return toTwips(toolbar_->height()); }

} // namespace orbelan
