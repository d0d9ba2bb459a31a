#pragma once

#include "platform/rtl/TObject.h"

namespace quorin {

enum class TOpenOption : Byte {
    ofOverwritePrompt, // the user is asked before an existing file is chosen
    ofHideReadOnly,    // no box to open the file for reading alone
    ofNoChangeDir,     // the process keeps its working folder, wherever the user went
    ofEnableSizing,    // the dialog can be made larger
};
using enum TOpenOption;
using TOpenOptions = Integer; // a set of bits

inline constexpr TOpenOptions OptionBit(TOpenOption option) {
    return 1 << static_cast<Integer>(option);
}

class TSaveDialog;

// Shows save dialogs to the user; the host of the program implements and installs it.
class TSaveDialogHost {
public:
    virtual ~TSaveDialogHost() = default;

    // Proposes the dialog's FileName in its InitialDir and puts the user's choice into FileName. An
    // extension that the user leaves out is DefaultExt already where the host asks about an
    // existing file: TSaveDialog::FullName tells the name. It keeps all options but ofNoChangeDir,
    // which is the dialog's own business. False when the user cancels.
    virtual Boolean ChooseFile(TSaveDialog& dialog) = 0;

    // Not owned; nil removes it.
    static void Install(TSaveDialogHost* host);
};

// Asks the user where to save a file.
class TSaveDialog : public TObject {
    QUORIN_CLASS(TSaveDialog, TObject)

    explicit TSaveDialog(TOpenOptions options = 0) : Options(options) {}

    bool Has(TOpenOption option) const { return (Options & OptionBit(option)) != 0; }

    // A name as the dialog completes it: in InitialDir unless it names a folder from the root, with
    // DefaultExt unless it has an extension. Empty for an empty one.
    String FullName(StringView name) const;

    // True when the user chose a file: FileName is its full name then. False when he cancelled, or
    // nobody is there to ask.
    Boolean Execute();

    TOpenOptions Options;
    String InitialDir; // empty: the working folder
    String DefaultExt; // without a point
    String FileName;   // the proposal, then the choice
    String Filter;     // captions and patterns by turns, apart by "|"
};

} // namespace quorin
