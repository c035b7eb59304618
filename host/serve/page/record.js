// The bytes of a record and of what hangs on it, as a map.

import { h, roving, startRoving } from "./dom.js";

const WIDE = 16;
const NARROW = 8;
const SECRET_BYTE = "\u2022\u2022";

const bytesOf = (hex) => Uint8Array.from({ length: hex.length / 2 }, (_, i) => parseInt(hex.slice(2 * i, 2 * i + 2), 16));

/** The fields of a block in the order of their bytes, with gaps between them as fields without a name. */
function spansOf(block) {
  const size = block.bytes.length / 2;
  // A string that hangs on the record has no fields: it is one.
  if (block.fields.length === 0)
    return [{ name: block.path, type: `char[${size}]`, offset: 0, size, whole: true }];
  const fields = [...block.fields].sort((a, b) => a.offset - b.offset || b.size - a.size);
  const spans = [];
  let at = 0;
  for (const field of fields) {
    if (field.offset < at) { // an alternative of a union
      const other = spans.findLast((span) => span.name && span.offset <= field.offset);
      if (other)
        (other.others ??= []).push(field.name);
      continue;
    }
    if (field.offset > at)
      spans.push({ offset: at, size: field.offset - at });
    spans.push({ ...field });
    at = field.offset + field.size;
  }
  if (at < size)
    spans.push({ offset: at, size: size - at });
  return spans;
}

/** The name of a place in a block, from the record on. */
export const fullName = (block, field) => (field.whole ? block.path : block.path && field.name ? `${block.path}.${field.name}` : block.path || field.name);

function valueOf(bytes, span) {
  const own = bytes.subarray(span.offset, span.offset + span.size);
  if (/^char\[/.test(span.type)) {
    const end = own.indexOf(0);
    return JSON.stringify(new TextDecoder().decode(end < 0 ? own : own.subarray(0, end)));
  }
  if (/^u?int\d+_t$|^long$/.test(span.type) && span.size <= 8) {
    let value = 0n;
    own.forEach((byte, i) => { value |= BigInt(byte) << BigInt(8 * i); });
    return String(/^u/.test(span.type) ? value : BigInt.asIntN(8 * span.size, value));
  }
  return "";
}

/**
 * The map. point(kind, field): the field under the mouse ("hover") or in focus ("focus"), as {block, offset, size, name},
 * or null.
 */
export class RecordMap {
  constructor(place, { point, secrets }) {
    this.point = point;
    this.secrets = secrets;
    this.open = new Set(); // runs of zeros that are shown
    this.cells = [];
    this.detail = h("p", { class: "detail" });
    this.list = h("div", { class: "map", role: "listbox", "aria-label": "Bytes of the record, by field" });
    place.append(this.detail, this.list);
    roving(this.list, "[role=option]");
    const fieldAt = (event) => event.target.closest?.("[data-cell]") ?? null;
    this.list.addEventListener("mouseover", (event) => this.#pointAt("hover", fieldAt(event)));
    this.list.addEventListener("mouseleave", () => this.#pointAt("hover", null));
    this.list.addEventListener("focusin", (event) => this.#pointAt("focus", fieldAt(event)));
    this.list.addEventListener("click", (event) => {
      const run = event.target.closest("[data-run]");
      if (run) {
        this.open.add(run.dataset.run);
        this.draw(this.before, this.after);
      }
    });
    this.narrow = matchMedia("(max-width: 44rem)");
    this.redraw = () => this.after && this.draw(this.before, this.after);
    this.narrow.addEventListener("change", this.redraw);
  }

  end() { this.narrow.removeEventListener("change", this.redraw); }

  #pointAt(kind, cell) {
    this.point(kind, cell ? this.cells[Number(cell.dataset.cell)].field : null);
  }

  /** Draws two images of a record: before a document and after it. */
  draw(before, after) {
    this.before = before;
    this.after = after;
    this.cells = [];
    const old = new Map(before.blocks.map((block) => [block.path, block]));
    const now = new Set(after.blocks.map((block) => block.path));
    const gone = before.blocks.filter((block) => !now.has(block.path));
    const focused = document.activeElement?.closest?.("[data-cell]")?.dataset.cell;
    this.list.replaceChildren(...after.blocks.map((block) => this.#block(block, old.get(block.path))),
      ...gone.map((block) => h("p", { class: "block-name gone" }, `${block.path} is no longer there: ${block.type}`)));
    startRoving(this.list, "[role=option]");
    if (focused !== undefined)
      this.list.querySelector(`[data-cell="${focused}"]`)?.focus({ preventScroll: true });
    this.light([]);
  }

  #block(block, old) {
    const width = this.narrow.matches ? NARROW : WIDE;
    const bytes = bytesOf(block.bytes);
    const before = old ? bytesOf(old.bytes) : new Uint8Array(0);
    const changed = (i) => before[i] !== bytes[i];
    const spans = spansOf(block).map((span, i) => this.#cell(block, span, i, bytes, before, !old));
    const rows = [];
    for (let begin = 0; begin < bytes.length; begin += width) {
      const end = Math.min(begin + width, bytes.length);
      let zeros = end - begin === width;
      for (let i = begin; zeros && i < end; ++i)
        zeros = bytes[i] === 0 && !changed(i);
      rows.push({ begin, end, zeros });
    }
    const elements = [];
    for (let i = 0; i < rows.length;) {
      let to = i;
      while (to < rows.length && rows[to].zeros)
        ++to;
      const run = `${block.path} ${rows[i].begin}`;
      if (to - i >= 2 && !this.open.has(run)) {
        const [begin, end] = [rows[i].begin, rows[to - 1].end];
        elements.push(h("div", { class: "row", role: "presentation" }, h("span", { class: "offset", "aria-hidden": "true" }, `${begin}`),
          h("button", { type: "button", class: "zeros", "data-run": run, tabindex: -1 },
            `\u22ee ${end - begin} zeros${this.#namesIn(spans, begin, end)}`)));
        i = to;
      } else {
        elements.push(this.#row(rows[i], spans, bytes, changed, width));
        ++i;
      }
    }
    const title = `${block.path || "record"}`;
    const count = bytes.reduce((sum, _, i) => sum + (changed(i) ? 1 : 0), 0);
    return h("div", { role: "group", "aria-label": title }, h("p", { class: "block-name" }, h("strong", {}, title),
      ` ${block.type}, ${bytes.length} bytes,`, h("span", { class: count ? "count-changed" : "faint" },
        old ? (count ? ` ${count} changed` : " unchanged") : " new")), elements);
  }

  #namesIn(spans, begin, end) {
    const names = [...new Set(spans.filter((span) => span.name && span.offset < end && span.offset + span.size > begin).map((span) => span.name))];
    if (names.length === 0)
      return "";
    return `: ${names.length > 3 ? `${names[0]} \u2026 ${names.at(-1)}` : names.join(", ")}`;
  }

  #cell(block, span, tint, bytes, before, added) {
    const name = span.name ? fullName(block, span) : "";
    const secret = span.name && this.secrets.field(name) && this.secrets.hidden();
    const value = span.name ? valueOf(bytes, span) : "";
    const old = span.name && !added ? valueOf(before, span) : "";
    const values = secret ? "covered" : added || old === value ? value : `${old} \u2192 ${value}`;
    const place = span.size === 1 ? `byte ${span.offset}` : `bytes ${span.offset} to ${span.offset + span.size - 1}`;
    // Which bytes of a secret changed would tell its length.
    const changed = bytes.subarray(span.offset, span.offset + span.size).some((byte, i) => byte !== before[span.offset + i]);
    const cell = { ...span, secret, changed, tint: span.name ? `c${tint % 5}` : "gap", elements: [], first: true,
      field: span.name ? { block: block.path, offset: span.offset, size: span.size, name } : null,
      text: span.name ? `${name}, ${span.type}, ${place}${values ? `: ${values}` : ""}${span.meaning ? `; ${span.meaning}` : ""}` +
        `${span.others ? ` (or ${span.others.join(", ")})` : ""}` : `${place}: behind no key` };
    cell.number = this.cells.push(cell) - 1;
    return cell;
  }

  #row({ begin, end }, spans, bytes, changed, width) {
    const segments = spans.filter((span) => span.offset < end && span.offset + span.size > begin).map((span) => {
      const from = Math.max(begin, span.offset);
      const to = Math.min(end, span.offset + span.size);
      const hex = [];
      for (let i = from; i < to; ++i) {
        const text = span.secret ? SECRET_BYTE : bytes[i].toString(16).padStart(2, "0");
        hex.push(h("span", { class: (span.secret ? span.changed : changed(i)) ? "byte changed" : bytes[i] === 0 ? "byte zero" : "byte" }, text));
      }
      const first = span.first;
      span.first = false;
      const element = h("span", {
        class: `segment ${span.tint} from${from - begin} span${to - from}${from > span.offset ? " goes-on" : ""}`,
        "data-cell": span.number,
        ...(span.name && first ? { role: "option", "aria-label": span.text, "aria-selected": "false" } : { "aria-hidden": "true" }),
      }, h("span", { class: "name" }, first && span.name ? span.name : "\u00a0"), h("span", { class: "hex" }, hex));
      span.elements.push(element);
      return element;
    });
    return h("div", { class: "row", role: "presentation" }, h("span", { class: "offset", "aria-hidden": "true" }, `${begin}`),
      h("span", { class: `cells of${width}`, role: "presentation" }, segments));
  }

  /** Lights up places, each {block, offset, size}; the first one is told in words. */
  light(ranges, scroll = false) {
    let told = null;
    for (const cell of this.cells) {
      const lit = cell.field !== null && ranges.some((range) => range.block === cell.field.block &&
        range.offset < cell.offset + cell.size && cell.offset < range.offset + range.size);
      for (const element of cell.elements) {
        element.classList.toggle("lit", lit);
        if (element.getAttribute("role") === "option")
          element.setAttribute("aria-selected", String(lit));
      }
      if (lit && !told)
        told = cell;
    }
    this.detail.textContent = told ? told.text : "Point at a byte, a step or a word of the document.";
    if (told && scroll)
      reveal(told.elements[0]);
  }
}

/** Scrolls an element's own panel, and only that, until it is seen. */
export function reveal(element) {
  const panel = element?.closest(".scroll");
  if (!panel)
    return;
  const [inner, outer] = [element.getBoundingClientRect(), panel.getBoundingClientRect()];
  if (inner.top < outer.top + 8 || inner.bottom > outer.bottom - 8)
    panel.scrollTop += inner.top - outer.top - panel.clientHeight / 3;
}
