/**
 * Ties the elements of the strip to the rows of the table: a click, or Enter, on one selects both and moves the focus
 * to the other, so that a screen reader says it too.
 */
export function tieElementsToRows(area: HTMLElement): void {
    area.addEventListener("click", (event) => {
        const clicked = event.target instanceof globalThis.Element ? event.target.closest("button[data-name]") : null;
        if (!(clicked instanceof HTMLButtonElement)) {
            return;
        }
        const buttons = Array.from(area.querySelectorAll<HTMLButtonElement>("button[data-name]"));
        for (const button of buttons) {
            const isSelected = button.dataset["name"] === clicked.dataset["name"];
            const selected = button.closest("tr") ?? button;
            selected.classList.toggle("selected", isSelected);
            if (isSelected) {
                button.setAttribute("aria-current", "true");
            } else {
                button.removeAttribute("aria-current");
            }
        }
        buttons.find((button) => button !== clicked && button.dataset["name"] === clicked.dataset["name"])?.focus();
    });
}
