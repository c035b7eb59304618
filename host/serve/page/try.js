// What the plug-in makes of a document: as one types, what is lost; what is stored beside what is sent; each step.

import { h, put, say, counted, roving, startRoving } from "./dom.js";
import { parse, linesOf, same, pretty, lastOf } from "./json.js";
import { Editor, defaultOf } from "./editor.js";
import { lineParts, recordOf, newRecord } from "./look.js";
import { RecordMap, fullName, reveal } from "./record.js";
import { Ties, together } from "./links.js";
import { suggestedId, faultOfId } from "./ids.js";
import { snippet } from "./snippets.js";
import { secretsOf, COVER, onSecrets } from "./secrets.js";
import * as api from "./api.js";

const CHECK_DELAY = 10; // ms behind a key press: fast typing asks once
const TRACE_DELAY = 60;
const VALIDATE = {
  warn: "write, and say so",
  strict: "refuse",
  ignore: "write",
};
const SAMPLE = { lossless: "Nothing is lost", lossy: "Accepted with loss", rejected: "Rejected" };

const drafts = new Map(); // what was typed, by resource and record

const childrenOf = (keys, path) => keys.filter((key) =>
  key.path.startsWith(`${path}/`) && !key.path.slice(path.length + 1).includes("/"));

/** A document to begin with: what the record shows of the keys that are taken, and what else is required. */
export function firstDocument(contract, record, ties) {
  const { keys } = contract.input;
  // Whether a condition of a key's holds; one of the record's own fields is taken to.
  const holds = (condition, place) => {
    const numbers = place.match(/(?<=\/)\d+(?=\/|$)/g) ?? [];
    const path = (condition.path ?? "").replace(/\*/g, () => numbers.shift() ?? "0");
    const value = record?.get(ties.shownOf(path) ?? path);
    if ("field" in condition)
      return true;
    if (!condition.values?.length)
      return value !== undefined;
    const is = condition.values.some((each) => JSON.stringify(each) === value?.raw);
    return condition.except ? !is : is;
  };
  const build = (path, pointer, depth) => {
    const members = [];
    for (const key of childrenOf(keys, path)) {
      const name = lastOf(key.path);
      const place = `${pointer}${key.path.slice(path.length)}`;
      const there = record?.get(ties.shownOf(place) ?? place);
      const seen = !key.looked_at_when || key.looked_at_when.some((condition) => holds(condition, place));
      const text = key.refused || !seen ? null : valueOf(key, place, there, depth + 1);
      if (text !== null)
        members.push(`${"  ".repeat(depth + 1)}${JSON.stringify(name)}: ${text}`);
    }
    return members.length === 0 ? "{}" : `{\n${members.join(",\n")}\n${"  ".repeat(depth)}}`;
  };
  const valueOf = (key, pointer, there, depth) => {
    const needed = key.required || key.required_when?.some((condition) => holds(condition, pointer));
    if (!there && !needed)
      return null;
    if (key.type === "text" && there?.type === "string" && /^[[{]/.test(there.value) && parse(there.value).root?.closed)
      return there.value;
    if (key.type === "object" || (key.type === "text" && there?.type === "object"))
      return childrenOf(keys, key.path).length !== 0 ? build(key.path, pointer, depth) : there ? pretty(there) : "{}";
    if (key.type === "array") {
      const element = keys.find((each) => each.path === `${key.path}/*`);
      if (there?.type !== "array" || there.children.length === 0 || !element)
        return "[]";
      const pad = "  ".repeat(depth + 1);
      const elements = there.children.slice(0, key.most ?? Infinity).map((child, i) =>
        `${pad}${valueOf(element, `${pointer}/${i}`, child, depth + 1) ?? "null"}`);
      return `[\n${elements.join(",\n")}\n${"  ".repeat(depth)}]`;
    }
    if (there && there.raw !== undefined && (there.type === key.type || !["boolean", "integer", "real", "string"].includes(key.type)))
      return there.raw;
    return needed ? defaultOf(key) : null;
  };
  return build("", "", 0);
}

/** The part of a text that is one of its values, so that digits stay as they are. */
function part(document, pointer) {
  const value = document.get(pointer);
  return value && value.type !== "null" ? parse(document.text.slice(value.start, value.end)) : null;
}

const draftOf = (name, id) => `${name} ${id}`;

const button = (text, act, kind = "") => h("button", { type: "button", class: kind, onclick: act }, text);

function lossOf(answer) {
  const lost = (answer.findings ?? []).filter((finding) => finding.severity !== "note").length;
  return answer.result === "lossy" && lost ? `, with ${counted(lost, "finding")}` : "";
}

function whyNot(what, error) {
  if (!(error instanceof api.Refusal))
    return "The server does not answer.";
  const { title, detail, errors } = error.problem;
  const why = (errors ?? []).filter((each) => !each.later).map((each) => `${each.field ? `${each.field}: ` : ""}${each.message}`).join("; ");
  return `${what} ${why || detail || title || `Status ${error.status}`}`;
}

class Trial {
  constructor(name, id, contract, resource) {
    Object.assign(this, { name, id, contract, resource });
    this.secrets = secretsOf(contract);
    this.ties = new Ties(contract);
    this.steps = [];
    this.places = new Map();
    this.targets = { hover: null, focus: null };
    this.asked = 0;
    this.before = null;
  }

  async load(ids) {
    this.ids = ids;
    const shown = this.id !== undefined && this.resource.directions !== "write-only" ? await api.records(this.name, this.id) : null;
    this.etag = shown?.etag ?? null;
    this.before = shown ? recordOf(parse(shown.text)) : null;
    this.model = this.before;
    this.text = drafts.get(this.draft) ?? firstDocument(this.contract, this.model, this.ties);
  }

  get draft() { return draftOf(this.name, this.id); }

  /** What the document is checked for. */
  get target() { return { id: this.id }; }

  /** The request that sends it. */
  get request() { return api.writing(this.name, this.id, this.validate.value); }

  /** What chooses the record, and what sends the document. */
  tools(go) {
    return [
      h("label", {}, "Record ", h("select", { id: "record", disabled: this.ids.length < 2, onchange: (event) => go({ id: event.target.value }) },
        this.ids.map((each) => h("option", { value: each, selected: each === this.id }, each)))),
      button("Write to the gateway", () => this.send(), "primary"),
    ];
  }

  start() { this.editor.refresh(); }

  build(main, go) {
    this.validate = h("select", { id: "validate" }, Object.entries(VALIDATE).map(([key, text]) => h("option", { value: key }, text)));
    this.status = h("p", { class: "status", role: "status" });
    this.findings = h("ul", { class: "findings", "aria-label": "Findings" });
    this.shown = h("div", { class: "json" });
    this.stepList = h("div", { class: "steps", role: "listbox", "aria-label": "Steps of the plug-in" });
    const editorPlace = h("div", { class: "editor" });
    const mapPlace = h("div", {});
    const panel = (key, title, tools, ...content) => h("section", { class: `panel ${key}`, "aria-labelledby": `h-${key}` },
      h("header", {}, h("h2", { id: `h-${key}` }, title), tools), content);
    const scroll = (label, ...content) => h("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": label }, content);
    this.shownTitle = h("span", { class: "faint" });

    put(main, 
      h("div", { class: "tools" },
        this.tools(go),
        h("label", {}, "On loss ", this.validate),
        h("span", { class: "spring" }),
        h("span", { class: "choice", role: "group", "aria-label": "Copy the request as" }, h("span", { class: "faint" }, "Copy as "),
          ["curl", "fetch", "TypeScript"].map((kind) => button(kind, () => this.copy(kind), "small")))),
      h("div", { class: "bench" },
        panel("sent", "Sent", [h("span", { class: "spring" }), button("Format", () => this.editor.format(), "small"),
          button("Start again", () => this.restart(), "small")], editorPlace, this.status,
        this.findings),
        panel("stored", "Stored", this.shownTitle, scroll("Record as it is shown afterwards", this.shown)),
        panel("trace", "Steps", h("span", { class: "faint" }, "in the order of the plug-in's look-ups"), scroll("Steps", this.stepList)),
        panel("bytes", "Bytes", h("span", { class: "key" }, h("b", { class: "changed" }, "00"), " changed"), scroll("Bytes", mapPlace))));

    this.map = new RecordMap(mapPlace, { secrets: this.secrets, point: (kind, field) => this.point(kind, field && { field }, "bytes") });
    this.editor = new Editor(editorPlace, {
      text: this.text, contract: this.contract, secrets: this.secrets,
      changed: (text) => { drafts.set(this.draft, text); this.changed(); },
      pointed: (kind, value) => this.point(kind, value && { sent: value.pointer }, "sent"),
      submit: () => this.send(),
    });
    this.editor.record = this.before;

    roving(this.stepList, "[role=option]");
    const listen = (list, selector, targetOf, from) => {
      const at = (event) => { const element = event.target.closest?.(selector); return element ? targetOf(element) : null; };
      list.addEventListener("mouseover", (event) => this.point("hover", at(event), from));
      list.addEventListener("mouseleave", () => this.point("hover", null, from));
      list.addEventListener("focusin", (event) => this.point("focus", at(event), from));
    };
    listen(this.stepList, "[data-step]", (element) => ({ step: Number(element.dataset.step) }), "trace");
    this.stepList.addEventListener("click", (event) => {
      const step = event.target.closest("[data-step]");
      if (step)
        step.focus();
    });
    this.stepList.addEventListener("keydown", (event) => {
      const step = event.target.closest("[data-step]");
      if (step && event.key === "Enter")
        this.editor.goTo({ pointer: this.steps[Number(step.dataset.step)].pointer });
    });
    listen(this.shown, "[data-pointer]", (element) => ({ shown: element.dataset.pointer }), "stored");
    this.stopSecrets = onSecrets(() => {
      this.editor.cover();
      this.drawFindings();
      this.drawTrace();
    });
    this.check();
  }

  end() {
    clearTimeout(this.checkTimer);
    clearTimeout(this.traceTimer);
    this.running?.abort();
    this.stopSecrets();
    this.map.end();
    this.asked = -1;
  }

  changed() {
    this.pressed = performance.now();
    clearTimeout(this.checkTimer);
    clearTimeout(this.traceTimer);
    this.checkTimer = setTimeout(() => this.check(), CHECK_DELAY);
  }

  async check() {
    const number = ++this.asked;
    const begun = this.pressed ?? performance.now();
    this.running?.abort();
    this.running = new AbortController();
    const { signal } = this.running;
    const { text } = this.editor;
    try {
      const answer = await api.check(this.name, this.target, text, signal);
      if (number !== this.asked)
        return;
      this.answer = answer;
      this.drawFindings();
      this.status.dataset.milliseconds = (performance.now() - begun).toFixed(1);
      this.status.dataset.checked = number;
      this.traceTimer = setTimeout(() => this.trace(number, text, signal), TRACE_DELAY);
    } catch (error) {
      if (error.name !== "AbortError" && number === this.asked)
        this.fail(error);
    }
    this.pressed = undefined;
  }

  fail(error) {
    this.status.className = "status rejected";
    this.status.textContent = error instanceof api.Refusal ? `The server refuses: ${error.message}` : "The server does not answer.";
    this.findings.replaceChildren();
  }

  async trace(number, text, signal) {
    this.traced = null;
    this.after = null;
    try {
      if (this.answer.errors.some((error) => error.detail)) // it is no document: there are no steps
        throw new api.Refusal(422, {});
      const answer = parse(await api.trace(this.name, this.target, text, signal));
      if (number !== this.asked)
        return;
      this.traced = JSON.parse(answer.text);
      const record = part(answer, "/record");
      this.after = record ? recordOf(record) : null;
      this.sent = parse(text);
    } catch (error) {
      if (error.name === "AbortError" || number !== this.asked)
        return;
    }
    this.drawTrace();
    this.status.dataset.traced = number;
  }

  /** Errors and findings alike, each with a severity. */
  faults() {
    const { errors, findings } = this.answer;
    return [
      ...errors.map((error) => ({ ...error, severity: error.later ? "later" : "error", code: error.later ? "then" : "rejected",
        message: [error.message, error.detail].filter(Boolean).join(": ") })),
      ...findings,
    ];
  }

  drawFindings() {
    if (!this.answer)
      return;
    const faults = this.faults();
    const number = (severities) => faults.filter((each) => severities.includes(each.severity)).length;
    const counts = [[number(["error", "later"]), "error"], [number(["warning"]), "warning"], [number(["note"]), "note"]]
      .filter(([count]) => count !== 0).map(([count, word]) => counted(count, word));
    this.status.className = `status ${this.answer.result}`;
    this.status.textContent = [SAMPLE[this.answer.result], ...counts].join(" \u00b7 ");
    this.editor.showFindings(faults);
    this.findings.replaceChildren(...faults.map((fault) => h("li", {},
      h("button", { type: "button", class: `finding ${fault.severity}`, onclick: () => this.editor.goTo(fault),
        onfocus: () => fault.pointer !== undefined && this.point("focus", { sent: fault.pointer }, "sent"),
        onmouseenter: () => fault.pointer !== undefined && this.point("hover", { sent: fault.pointer }, "findings"),
        onmouseleave: () => this.point("hover", null, "findings") },
      h("span", { class: "code-name" }, fault.code),
      h("span", { class: "where" }, fault.line ? `${fault.line}:${fault.column}` : ""),
      h("span", { class: "what" }, fault.field ? h("b", {}, `${fault.field}: `) : fault.pointer ? h("b", {}, `${fault.pointer.slice(1)}: `) : null,
        fault.message, fault.source && fault.source !== "json" ? h("span", { class: "faint" }, ` (${fault.source})`) : null)))));
  }

  drawTrace() {
    const traced = this.traced;
    this.steps = traced?.steps ?? [];
    this.drawShown();
    this.drawSteps();
    this.places = new Map();
    if (traced) {
      for (const block of traced.after.blocks) {
        for (const field of block.fields)
          this.places.set(fullName(block, field), { block: block.path, offset: field.offset, size: field.size });
      }
      this.map.draw(traced.before, traced.after);
    }
    this.light();
  }

  /** Whether a string is what an object or list of the document was written to. */
  written(sent, value) {
    try {
      return JSON.stringify(JSON.parse(value.value)) === JSON.stringify(JSON.parse(this.sent.text.slice(sent.start, sent.end)));
    } catch {
      return false;
    }
  }

  /** What a line of the record says beyond its value: what it was, and what was sent in its place. */
  difference(value) {
    if (value.raw === undefined)
      return null;
    const words = (other) => (this.secrets.covers(value) ? COVER : other.raw ?? (other.type === "array" ? "[\u2026]" : "{\u2026}"));
    const old = this.before?.get(value.pointer);
    const sentPointer = this.ties.sentOf(value.pointer);
    const sent = sentPointer === null ? null : this.sent?.get(sentPointer);
    const lost = sent && !same(sent, value) && !(sent.raw === undefined && this.written(sent, value));
    const changed = this.before && (!old || !same(old, value));
    if (lost)
      return { kind: "differs", sign: "\u2260", note: `sent ${words(sent)}` };
    if (changed)
      return { kind: "changed", sign: old ? "~" : "+", note: old ? `was ${words(old)}` : "new" };
    return null;
  }

  drawShown() {
    const { after, before } = this;
    if (!after?.root) {
      this.shownTitle.textContent = "";
      this.shown.replaceChildren(h("p", { class: "empty" }, this.traced ?
        "Nothing is shown of this resource." : "Nothing: the text is no document that can be read."));
      return;
    }
    const shownText = (value) => (this.secrets.covers(value) ? JSON.stringify(COVER) : value.raw);
    let differs = 0;
    let changed = 0;
    const lines = linesOf(after.root, shownText).map(({ depth, value, parts, closes }) => {
      const difference = closes ? null : this.difference(value);
      differs += difference?.kind === "differs";
      changed += difference?.kind === "changed";
      return h("div", { class: `line depth${Math.min(depth, 9)} ${difference?.kind ?? ""}`, "data-pointer": closes ? null : value.pointer },
        h("span", { class: "gutter", "aria-hidden": "true" }, difference?.sign ?? ""), h("code", {}, lineParts(parts)),
        difference ? h("span", { class: "note" }, difference.note) : null);
    });
    const gone = (before?.values ?? []).filter((value) => !after.get(value.pointer) && after.get(value.parent?.pointer ?? "")).map((value) =>
      h("div", { class: "line gone" }, h("span", { class: "gutter", "aria-hidden": "true" }, "\u2212"),
        h("span", { class: "note" }, `${value.pointer} is no longer there`)));
    this.shown.replaceChildren(...lines, ...gone);
    const accepted = this.traced.accepted;
    this.shownTitle.textContent = [accepted ? "as the gateway would show it" : "rejected: up to there it would have been stored",
      changed ? `${changed} changed` : "", differs ? `${differs} not as sent` : ""].filter(Boolean).join(", ");
  }

  drawSteps() {
    const errors = this.traced?.errors ?? [];
    const failing = this.steps.findLastIndex((step) => errors.some((error) => error.pointer === step.pointer));
    this.stepList.replaceChildren(...this.steps.map((step, i) => {
      const value = this.sent?.get(step.pointer);
      const secret = value && this.secrets.covers(value);
      const covered = secret ? JSON.stringify(COVER) : "";
      const text = !step.found ? "absent" : !value ? "" : covered || (value.raw ?? (value.type === "array" ? "[\u2026]" : "{\u2026}"));
      const stored = step.stored.map((each) => h("span", { class: "stored" },
        h("span", { class: "arrow" }, "\u2192 "), namesake(each.field, step.pointer) ? null : h("span", { class: "field" }, `${each.field} `),
        h("span", { class: "faint" }, `@${each.offset}+${each.size} `),
        h("span", { class: "hex" }, secret ? "\u2022\u2022 \u2026" : hexOf(each.bytes))));
      return h("div", { role: "option", "aria-selected": "false", "data-step": i, class: `step${i === failing ? " failing" : ""}${step.found ? "" : " absent"}` },
        h("span", { class: "number" }, `${i + 1}`), h("span", { class: "pointer" }, step.pointer || "(document)"),
        h("span", { class: `value${step.found ? "" : " faint"}` }, text), h("span", { class: "to" }, stored),
        i === failing ? h("span", { class: "error" }, errors.filter((error) => error.pointer === step.pointer)
          .map((error) => `${error.field}: ${error.message}`).join("; ")) : null);
    }));
    if (this.steps.length === 0)
      this.stepList.append(h("p", { class: "empty" }, this.traced ? "It looked nothing up." : "The text is no document that can be read."));
    startRoving(this.stepList, "[role=option]");
  }

  point(kind, target, from) {
    this.targets[kind] = target;
    this.from = from;
    this.light(true);
  }

  light(scroll = false) {
    const target = this.targets.hover ?? this.targets.focus;
    const found = target?.step >= this.steps.length ? together(null) : together(target, this.ties, this.steps, this.places);
    this.editor.light(this.from === "sent" ? [] : found.sent);
    const shown = new Set(found.shown);
    let first = null;
    for (const line of this.shown.children) {
      const lit = shown.has(line.dataset.pointer);
      line.classList.toggle("lit", lit);
      first ??= lit ? line : null;
    }
    if (scroll && first && this.from !== "stored")
      reveal(first);
    first = null;
    for (const step of this.stepList.querySelectorAll("[data-step]")) {
      const lit = found.steps.includes(Number(step.dataset.step));
      step.classList.toggle("lit", lit);
      step.setAttribute("aria-selected", String(lit));
      first ??= lit ? step : null;
    }
    if (scroll && first && this.from !== "trace")
      reveal(first);
    this.map.light(found.ranges, scroll && this.from !== "bytes");
  }

  async send() {
    const { text } = this.editor;
    try {
      const answer = await api.write(this.name, this.id, text, this.validate.value, this.etag);
      say(`Written to ${this.name} ${this.id}${lossOf(answer)}.`, "good");
    } catch (error) {
      say(error.status === 412 ? "The record changed since this page read it. It has been read again: look, then write once more." :
        whyNot("Not written.", error), "bad");
      if (error.status !== 412)
        return;
    }
    await this.again();
  }

  /** Reads the record again, which is what the document is then held against. */
  async again() {
    if (this.resource.directions !== "write-only") {
      const shown = await api.records(this.name, this.id);
      this.etag = shown.etag;
      this.before = recordOf(parse(shown.text));
      this.editor.record = this.before;
    }
    this.check();
  }

  restart() {
    this.editor.text = firstDocument(this.contract, this.model, this.ties);
    drafts.delete(this.draft);
    this.editor.focus();
  }

  async copy(kind) {
    const { method, path } = this.request;
    await navigator.clipboard.writeText(snippet(kind, method, location.origin + path, this.name, this.editor.text));
    say(`Copied as ${kind}.`, "good");
  }
}

/** A document for a record that is not there yet. id: of the one that it begins like; none if there is none. */
class NewTrial extends Trial {
  async load(ids) {
    await super.load(ids);
    this.before = null;
  }

  get draft() { return draftOf(this.name, ""); }

  get target() {
    const id = this.field.value;
    return faultOfId(id, []) ? { new: true } : { new: true, id };
  }

  get request() { return api.making(this.name, this.field.value, this.validate.value); }

  tools() {
    this.fault = h("span", { id: "new-id-fault", class: "fault", role: "status" });
    this.field = h("input", { id: "new-id", size: 16, value: suggestedId(this.ids), "aria-describedby": "new-id-fault", autocomplete: "off",
      spellcheck: "false", oninput: () => this.renamed(), onkeydown: (event) => event.key === "Enter" && this.send() });
    return [
      h("label", {}, "New record\u2019s id ", this.field),
      button("Create", () => this.send(), "primary"),
      h("a", { class: "button", href: `#/${this.name}/look` }, "Cancel"), this.fault,
    ];
  }

  start() {
    super.start();
    this.field.focus();
    this.field.select();
  }

  renamed() {
    const id = this.field.value;
    this.complain(id && faultOfId(id, this.ids)); // an empty one is about to be typed
    this.changed();
  }

  complain(text) {
    this.fault.textContent = text;
    this.field.setAttribute("aria-invalid", String(text !== ""));
  }

  async send() {
    const id = this.field.value;
    const fault = faultOfId(id, this.ids);
    this.complain(fault);
    if (fault) {
      this.field.focus();
      return;
    }
    if (this.sending) // the Enter key repeats
      return;
    this.sending = true;
    try {
      const answer = await api.make(this.name, id, this.editor.text, this.validate.value);
      say(`Created ${this.name} ${id}${lossOf(answer)}.`, "good");
    } catch (error) {
      if (error.status === 409) {
        this.complain(faultOfId(id, [id]));
        this.field.focus();
      } else {
        say(whyNot("Not created.", error), "bad");
      }
      return;
    } finally {
      this.sending = false;
    }
    drafts.delete(this.draft);
    drafts.delete(draftOf(this.name, id));
    await this.become("look", { id }, ".record h2");
  }
}

/** Whether a field's name says nothing that the key does not say. */
const namesake = (field, pointer) => field === lastOf(pointer) ||
  field.replace(/\[(\d+)\]/g, ".$1") === pointer.slice(1).replaceAll("/", ".");

const hexOf = (hex) => {
  const bytes = hex.match(/../g) ?? [];
  let { length } = bytes;
  while (length > 4 && bytes[length - 1] === "00")
    --length;
  const shown = bytes.slice(0, Math.min(length, 8)).join(" ");
  return length < bytes.length || length > 8 ? `${shown} \u2026` : shown;
};

/** The view. id: the record that the document goes into or, where it makes a new one, begins like; without it the first one. */
export async function tryOut(main, name, { id, new: makes }, go, become) {
  const [contract, all] = await Promise.all([api.contract(name), api.resources()]);
  const resource = all.find((each) => each.resource === name);
  if (!contract.input) {
    put(main, h("p", { class: "lead" }, resource.directions === "read-only" ?
      "It is read-only: whatever is sent is accepted, and nothing of it is stored; no record can be made. " : "It moves a block of 8 raw bytes, which is no JSON. ",
    resource.directions !== "write-only" ? h("a", { href: `#/${name}/look` }, "Look at it") : null));
    return null;
  }
  const ids = await api.ids(name);
  if (ids.length === 0 && !makes) {
    put(main, h("p", { class: "lead" }, "There is no record that a document could go into."), newRecord(name, resource, contract));
    return null;
  }
  const trial = new (makes ? NewTrial : Trial)(name, ids.includes(id) ? id : ids[0], contract, resource);
  trial.become = become;
  await trial.load(ids);
  trial.build(main, go);
  return { end: () => trial.end(), start: () => trial.start() };
}
