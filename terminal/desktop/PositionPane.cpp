#include "terminal/desktop/PositionPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

TPositionPane::TPositionPane(TOrderDialog& dialog, QWidget* parent)
    : TActionPane(TPaneKind::Positions, parent) {
    auto form = std::make_unique<TPositionForm>();
    FForm = form.get();
    Bind(std::move(form), dialog, PositionActions(*FForm));
    TakeAccount(FirstAccount);
}

QString TPositionPane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_Positions)) + u' ' +
           ToQt(FForm->Control().Account());
}

void TPositionPane::JoinGroup(StringView groupID) {
    FForm->Control().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

} // namespace quorin
