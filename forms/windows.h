// Forms on show, the focus, and what a person can reach: a control that is hidden or disabled, itself or
// by its container, or that stands behind a modal form, takes no input.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"

namespace windows {

/// Shows a form beside the others; returns at once.
void show(Control& form);

/// Shows a form that blocks the others; returns when it has been hidden. Timers go on meanwhile.
void showModal(Control& form);

void hide(Control& form);

/// A message box comes up, or has been answered: it stands before everything that was on show.
void openBox();
void closeBox();

/// Whether a message box is what stands in front.
bool boxInFront();

/// The modal form in front, or none: a message box in front of it does not count.
Control* topModal();

/// Forgets what is modal, for a run that begins anew.
void reset();

/// Whether a person works with controls of this kind.
bool takesFocus(Kind kind);

/// Gives the focus to a control. One that cannot take it (hidden, disabled, or of a kind that takes none)
/// leaves it where it is: what the program would like to point at may be gone by the time it is said.
void setFocus(Control& control);

/// The control is its form's active one, and no modal form stands before that form.
bool hasFocus(const Control& control);

/// The form a control stands on.
Control& formOf(Control& control);

/// Visible and enabled together with all containers up to its form. Pages of a tab control do not count:
/// a person can turn to them.
bool isShown(const Control& control);
bool isUsable(const Control& control);

/// Why a person cannot act on the control now, or an empty text.
std::string refusal(const Control& control);

}  // namespace windows
