#pragma once

/// The entry function of every command. Each is defined in the folder of its command; the exports
/// and other commands call it through this list. All run on the document's command thread, take
/// what they need from the current document and report to the user themselves.
namespace kovra {

/// Text: places new texts (export 1000).
void TextCommand();

/// Text from data version "7.00" on. Opens its modeless dialog; with the dialog open, carries out
/// what its buttons asked for.
void RunText7Command();

/// Resize text: changes the height of one text, one pass of its dialog at each call (1001).
void ResizeTextCommand();

/// Change properties of the selected texts (1002).
void ChangePropertiesCommand();

/// Count-up copy of the selected texts (1003).
void CountUpCommand();

/// Property copy with its dialog; `mode` 0 or 1 chooses the form of the dialog (1004, 1005).
void PropertyCopyCommand(int mode);

/// Property copy with parameters read from the command line (1006).
void PropertyCopyLineCommand();

/// Edit text property: applies a set of properties, selection after selection (1007).
void EditTextPropertyCommand();

/// Text align: puts the selected texts into a column (1008).
void TextAlignCommand();

/// Makes the page of the option dialog known (1) or takes it away (0).
void OptionEntry(int add);

}  // namespace kovra
