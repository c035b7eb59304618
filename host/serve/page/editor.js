// The editor: completion out of the contract, findings under the words, secrets covered.

import { h } from "./dom.js";
import { parse, contextAt, offsetOf, lastOf, generic, pretty } from "./json.js";
import { typeOf, rangeOf, meaningOf, necessityOf } from "./contract.js";
import { COVER } from "./secrets.js";

const { CodeMirror } = window;
const DEFAULTS = { boolean: "false", integer: "0", real: "0.0", number: "0", string: "\"\"", array: "[]", object: "{}", text: "{}", any: "null" };

/** A value for a key that has none yet. */
export const defaultOf = (key) => DEFAULTS[key.type] ?? "null";

const holderOf = (path) => path.slice(0, path.lastIndexOf("/"));

function keyHints(contract, context, document, record) {
  const there = new Set((document.get(context.holder)?.children ?? [])
    .filter((child) => child.key && child.key.start !== context.start).map((child) => child.key.name));
  const typed = document.text.slice(context.start, context.end).replaceAll("\"", "").toLowerCase();
  const keys = contract.input.keys;
  return keys
    .filter((key) => holderOf(key.path) === generic(context.holder) && !key.path.endsWith("/*") && !key.refused)
    .map((key) => ({ key, name: lastOf(key.path) }))
    .filter(({ name }) => !there.has(name) && name.toLowerCase().includes(typed))
    .sort((a, b) => b.name.toLowerCase().startsWith(typed) - a.name.toLowerCase().startsWith(typed))
    .map(({ key, name }) => {
      const old = record?.get(`${context.holder}/${name.replaceAll("~", "~0").replaceAll("/", "~1")}`);
      const fits = old && (old.type === key.type || key.type === "number") && old.children.length === 0;
      return { name, value: fits ? old.raw ?? defaultOf(key) : defaultOf(key), about: [typeOf(key), rangeOf(key)].filter(Boolean).join(", "),
        meaning: meaningOf(key), needed: necessityOf(key, keys) === "yes" };
    });
}

function valueHints(contract, context, record, secrets) {
  const key = contract.input.keys.find((each) => each.path === generic(context.pointer));
  if (!key)
    return [];
  const old = record?.get(context.pointer);
  const values = key.type === "boolean" ? ["true", "false"] : (key.values ?? []).map((each) => JSON.stringify(each));
  if (old?.raw !== undefined && !values.includes(old.raw) && !secrets.pointer(context.pointer))
    values.unshift(old.raw);
  if (values.length === 0)
    values.push(defaultOf(key));
  const about = [typeOf(key), rangeOf(key)].filter(Boolean).join(", ");
  return values.map((value) => ({ value, about: value === old?.raw ? "as it is" : about, meaning: meaningOf(key) }));
}

/**
 * An editor of documents for a resource, in a place of the page.
 * changed(text, document): at each change. pointed(kind, value): the value under the mouse ("hover") or the cursor
 * ("focus"), or null. submit(): Ctrl-Enter.
 */
export class Editor {
  constructor(place, { text, contract, secrets, changed, pointed, submit }) {
    this.contract = contract;
    this.secrets = secrets;
    this.record = null;
    this.findingMarks = [];
    this.litMarks = [];
    this.covers = [];
    const hints = () => this.#hints();
    this.editor = CodeMirror(place, {
      value: text, mode: "application/json", theme: "kelmora", lineNumbers: true, lineWrapping: true, tabSize: 2,
      indentUnit: 2, matchBrackets: true, autoCloseBrackets: true, styleActiveLine: true, viewportMargin: 60,
      screenReaderLabel: "Document to send", cursorBlinkRate: matchMedia("(prefers-reduced-motion: reduce)").matches ? 0 : 530,
      hintOptions: { hint: hints, completeSingle: false },
      extraKeys: { "Tab": false, "Shift-Tab": false, "Ctrl-Space": "autocomplete", "Ctrl-Enter": submit, "Cmd-Enter": submit },
    });
    this.document = parse(text);
    this.editor.on("changes", (_, changes) => {
      this.document = parse(this.editor.getValue());
      this.#cover();
      changed(this.document.text, this.document);
      const typed = changes.at(-1);
      if (typed.origin === "+input" && /^["\w]/.test(typed.text.at(-1) || " ") && !this.editor.state.completionActive) {
        const context = contextAt(this.document.text, this.#offset());
        if (context && context.wants === "key" && context.start !== context.end)
          this.editor.showHint();
      }
    });
    this.editor.on("cursorActivity", () => {
      this.#cover();
      if (this.editor.hasFocus())
        pointed("focus", this.document.at(this.#offset()));
    });
    this.editor.on("blur", () => this.#cover());
    const area = this.editor.getWrapperElement();
    let asked = false;
    area.addEventListener("mousemove", (event) => {
      if (asked)
        return;
      asked = true;
      requestAnimationFrame(() => {
        asked = false;
        const position = this.editor.coordsChar({ left: event.clientX, top: event.clientY }, "window");
        pointed("hover", position.outside ? null : this.document.at(this.editor.indexFromPos(position)));
      });
    });
    area.addEventListener("mouseleave", () => requestAnimationFrame(() => pointed("hover", null)));
    this.#cover();
  }

  get text() { return this.editor.getValue(); }

  set text(text) {
    this.editor.setValue(text);
    this.editor.clearHistory();
  }

  /** Brings what it shows in line with the room that it has now. */
  refresh() { this.editor.refresh(); }

  focus() { this.editor.focus(); }

  /** The part of the text that a finding or error is about: [begin, end], or nothing. */
  #rangeOf(finding) {
    const { document } = this;
    const value = finding.pointer === undefined ? undefined : document.get(finding.pointer);
    if (finding.line !== undefined) {
      const begin = offsetOf(document.text, finding.line, finding.column);
      const starting = document.values.find((each) => each.key?.start === begin) ?? document.values.find((each) => each.start === begin);
      if (starting?.key?.start === begin)
        return [begin, starting.key.end];
      if (starting && starting.raw !== undefined)
        return [begin, starting.end];
      return [begin, Math.max(begin + 1, begin + (/^\w+/.exec(document.text.slice(begin, begin + 80))?.[0].length ?? 0))];
    }
    if (value)
      return value.raw !== undefined ? [value.start, value.end] : [value.start, value.start + 1];
    return null;
  }

  /** Underlines the words that findings are about; each is {severity, message, pointer, line, column}. */
  showFindings(findings) {
    this.editor.operation(() => {
      this.findingMarks.forEach((mark) => mark.clear());
      this.findingMarks = [];
      for (const cover of this.covers)
        cover.widget.className = "covered";
      for (const finding of findings) {
        const range = this.#rangeOf(finding);
        if (!range)
          continue;
        this.findingMarks.push(this.editor.markText(this.editor.posFromIndex(range[0]), this.editor.posFromIndex(range[1]),
          { className: `found found-${finding.severity}`, attributes: { title: finding.message } }));
        const cover = this.covers.find((each) => each.begin === range[0] + 1);
        cover?.widget.classList.add("found", `found-${finding.severity}`);
      }
    });
  }

  /** Puts the cursor where a finding is, and the editor to work. */
  goTo(finding) {
    const range = this.#rangeOf(finding);
    if (range)
      this.editor.setSelection(this.editor.posFromIndex(range[0]), this.editor.posFromIndex(range[1]));
    this.editor.focus();
  }

  /** Lights up the values of these pointers. */
  light(pointers) {
    this.editor.operation(() => {
      this.litMarks.forEach((mark) => mark.clear());
      this.litMarks = [];
      for (const pointer of pointers) {
        const value = this.document.get(pointer);
        if (!value || value === this.document.root)
          continue;
        const end = value.children.length !== 0 || value.raw === undefined ? value.start + 1 : value.end;
        this.litMarks.push(this.editor.markText(this.editor.posFromIndex(value.key ? value.key.start : value.start),
          this.editor.posFromIndex(end), { className: "lit" }));
      }
    });
  }

  /** Covers or shows secrets as is asked for now. */
  cover() { this.#cover(true); }

  /** Lays the text out anew where it is a document. */
  format() {
    const { root } = this.document;
    if (root)
      this.editor.setValue(pretty(root));
  }

  #offset() { return this.editor.indexFromPos(this.editor.getCursor()); }

  // The value that the cursor is in stays open: one is at work on it.
  #cover(all = false) {
    const cursor = this.editor.hasFocus() && !all ? this.#offset() : -1;
    const wanted = this.document.values.filter((value) => this.secrets.covers(value) && value.end - value.start > 2 &&
      !(value.start < cursor && cursor < value.end));
    this.editor.operation(() => {
      this.covers = this.covers.filter((cover) => {
        const at = cover.mark.find();
        const begin = at ? this.editor.indexFromPos(at.from) : -1;
        const value = at && wanted.find((each) => each.start + 1 === begin && each.end - 1 === this.editor.indexFromPos(at.to));
        cover.begin = begin;
        if (!value)
          cover.mark.clear();
        return value;
      });
      for (const value of wanted.filter((each) => !this.covers.some((cover) => cover.begin === each.start + 1))) {
        const widget = h("span", { class: "covered", title: "A secret, covered. Put the cursor into it to change it." }, COVER);
        const mark = this.editor.markText(this.editor.posFromIndex(value.start + 1), this.editor.posFromIndex(value.end - 1),
          { replacedWith: widget, clearOnEnter: true });
        widget.addEventListener("mousedown", (event) => {
          event.preventDefault();
          const at = mark.find();
          mark.clear();
          this.editor.focus();
          if (at)
            this.editor.setCursor(at.to.ch > at.from.ch + 1 ? { line: at.to.line, ch: at.to.ch - 1 } : at.to);
        });
        this.covers.push({ mark, widget, begin: value.start + 1 });
      }
    });
  }

  #hints() {
    const { editor, document, contract } = this;
    const context = contextAt(document.text, this.#offset());
    if (!context)
      return null;
    const rest = document.text.slice(context.end);
    const list = context.wants === "key" ? keyHints(contract, context, document, this.record) :
      valueHints(contract, context, this.record, this.secrets);
    const render = (label, hint) => (element) => element.append(h("span", { class: "hint-name" }, label),
      h("span", { class: "hint-about" }, [hint.needed ? "required" : "", hint.about].filter(Boolean).join(" \u00b7 ")),
      h("span", { class: "hint-meaning" }, hint.meaning));
    return {
      from: editor.posFromIndex(context.start),
      to: editor.posFromIndex(context.end),
      list: list.map((hint) => {
        if (context.wants !== "key")
          return { text: hint.value, render: render(hint.value, hint) };
        const key = JSON.stringify(hint.name);
        const alone = /^\s*:/.test(rest);
        return {
          text: key,
          render: render(hint.name, hint),
          hint: (cm, data) => {
            const more = alone ? "" : `: ${hint.value}${/^\s*"/.test(rest) ? "," : ""}`;
            cm.replaceRange(key + more, data.from, data.to, "complete");
            if (alone)
              return;
            const begin = cm.indexFromPos(data.from) + key.length + 2;
            const inner = /^["[{]/.test(hint.value) ? 1 : 0;
            cm.setSelection(cm.posFromIndex(begin + inner), cm.posFromIndex(begin + hint.value.length - inner));
          },
        };
      }).map((hint) => ({ ...hint, from: editor.posFromIndex(context.start), to: editor.posFromIndex(context.end) })),
    };
  }
}
