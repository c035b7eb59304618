// The records as they are.

import { h, put, say, counted } from "./dom.js";
import { parse, linesOf, generic } from "./json.js";
import { meaningOf } from "./contract.js";
import { drawMesh } from "./mesh.js";
import { secretsOf, COVER, onSecrets } from "./secrets.js";
import * as api from "./api.js";

const FORMS = { pretty: "Pretty", text: "Exact text", bytes: "Bytes" };

/** A line of linesOf() as elements. */
export function lineParts(parts) {
  return parts.map(([kind, text]) => h("span", { class: `j-${kind}` }, text));
}

/** The record itself, where a document is a list of it alone. */
export function recordOf(document) {
  const { root, text } = document;
  if (root?.type !== "array" || root.children.length !== 1)
    return document;
  return parse(text.slice(root.children[0].start, root.children[0].end));
}

function prettyView(document, meanings, secrets) {
  const shown = (value) => (secrets.covers(value) ? JSON.stringify(COVER) : value.raw);
  return h("div", { class: "json" }, linesOf(document.root, shown).map(({ depth, value, parts, closes }) =>
    h("div", { class: "line" }, h("code", { class: `depth${Math.min(depth, 9)}` }, lineParts(parts)),
      !closes && meanings.has(generic(value.pointer)) ?
        h("span", { class: "note" }, meanings.get(generic(value.pointer))) : null)));
}

/** The parts of a text: those that are covered are true. */
function coveredParts(document, secrets) {
  const parts = [];
  let at = 0;
  for (const value of document.values.filter((each) => secrets.covers(each))) {
    parts.push([document.text.slice(at, value.start + 1), false], [document.text.slice(value.start + 1, value.end - 1), true]);
    at = value.end - 1;
  }
  return [...parts, [document.text.slice(at), false]];
}

function exactView(document, secrets) {
  return h("pre", { class: "exact" }, coveredParts(document, secrets).map(([text, covered]) =>
    (covered ? h("span", { class: "covered" }, COVER) : text)));
}

function bytesView(bytes, document, secrets) {
  const covered = new Uint8Array(bytes.length);
  const encoder = new TextEncoder();
  let at = 0;
  for (const [text, secret] of coveredParts(document, secrets)) {
    const { length } = encoder.encode(text);
    if (secret)
      covered.fill(1, at, at + length);
    at += length;
  }
  const lines = [];
  for (let begin = 0; begin < bytes.length; begin += 16) {
    const hex = [];
    let text = "";
    for (let i = begin; i < begin + 16; ++i) {
      const there = i < bytes.length;
      hex.push(!there ? "  " : covered[i] ? "\u2022\u2022" : bytes[i].toString(16).padStart(2, "0"));
      text += !there ? " " : covered[i] ? "\u2022" : bytes[i] >= 0x20 && bytes[i] < 0x7f ? String.fromCharCode(bytes[i]) : ".";
    }
    lines.push(`${begin.toString(16).padStart(6, "0")}  ${hex.slice(0, 8).join(" ")}  ${hex.slice(8).join(" ")}  ${text}`);
  }
  return h("pre", { class: "dump" }, lines.join("\n"));
}

function copyButton(text) {
  const button = h("button", { type: "button", class: "small", onclick: async () => {
    await navigator.clipboard.writeText(text);
    button.textContent = "Copied";
    setTimeout(() => { button.textContent = "Copy"; }, 1500);
  } }, "Copy");
  return button;
}

/**
 * A button that deletes a record, and the place in which it first asks. gone(): the record is no more. changed(): it is
 * another one by now.
 */
function deletion(name, id, etag, gone, changed) {
  const place = h("div", {});
  const close = () => {
    place.replaceChildren();
    button.setAttribute("aria-expanded", "false");
    button.focus();
  };
  let removing = false;
  const remove = async () => {
    if (removing) // a second click
      return;
    removing = true;
    let then = gone;
    try {
      await api.remove(name, id, etag);
      say(`Deleted ${name} ${id}.`, "good");
    } catch (error) {
      removing = false;
      if (error.status === 404) {
        say(`There was no ${name} ${id} any more.`, "bad");
      } else if (error.status === 412) {
        say("The record changed since this page read it. It has been read again: look, then delete once more.", "bad");
        then = changed;
      } else {
        say(error instanceof api.Refusal ? `Not deleted. ${error.message}` : "The server does not answer.", "bad");
        return;
      }
    }
    await then();
  };
  const ask = () => {
    const cancel = h("button", { type: "button", class: "small", onclick: close }, "Cancel");
    put(place, h("div", { class: "ask", role: "group", "aria-label": `Delete ${id}?`,
      onkeydown: (event) => event.key === "Escape" && close() },
    h("span", {}, "Delete ", h("b", {}, id), "?"), cancel,
    h("button", { type: "button", class: "small danger", onclick: remove }, `Delete ${id}`)));
    button.setAttribute("aria-expanded", "true");
    cancel.focus();
  };
  const button = h("button", { type: "button", class: "small", "aria-expanded": "false",
    onclick: () => (place.hasChildNodes() ? close() : ask()) }, "Delete", h("span", { class: "hidden" }, ` ${id}`));
  return { button, place };
}

/** A link to the making of a record like another one, or why there is none. */
export function newRecord(name, resource, contract, like) {
  if (!contract.input) {
    return h("span", { class: "faint" }, resource.directions === "read-only" ? "Read-only: no record can be made." :
      "A new one is a block of 8 raw bytes, which is no JSON.");
  }
  const parameters = new URLSearchParams({ new: "true", ...(like === undefined ? {} : { id: like }) });
  return h("a", { id: "new", class: "button", href: `#/${name}/try?${parameters}` }, "New record");
}

/** The view. id: the record to show; without it all. */
export async function look(main, name, { id, form = "pretty" }, go, become) {
  const [contract, resource] = await Promise.all([api.contract(name),
    api.resources().then((all) => all.find((each) => each.resource === name))]);
  const ids = await api.ids(name);
  const hidden = resource.directions === "write-only";
  const raw = !hidden && !contract.output;
  const secrets = secretsOf(contract);
  const meanings = new Map((contract.output?.keys ?? []).map((key) => [key.path, meaningOf(key)]).filter(([, text]) => text));
  const chosen = ids.includes(id) ? [id] : ids;
  const answers = await Promise.all(chosen.map((each) => (hidden ? null : api.records(name, each))));
  const total = answers.reduce((sum, each) => sum + (each?.bytes.length ?? 0), 0);
  const body = h("div", { class: "records" });

  const tools = h("div", { class: "tools" },
    ids.length > 1 ? h("label", {}, "Record ", h("select", { id: "record", onchange: (event) =>
      go({ id: event.target.value || undefined, form }) },
    h("option", { value: "" }, `all ${ids.length}`),
    ids.map((each) => h("option", { value: each, selected: each === id }, each)))) : null,
    raw || hidden ? null : h("div", { class: "choice", role: "group", "aria-label": "Form" }, Object.entries(FORMS).map(([key, text]) =>
      h("button", { type: "button", "aria-pressed": String(form === key), onclick: () => go({ id, form: key }) }, text))),
    h("span", { class: "faint" }, [counted(chosen.length, "record"), hidden ? "" : counted(total, "byte")].filter(Boolean).join(", ")),
    h("span", { class: "spring" }), newRecord(name, resource, contract, chosen[0]));

  // Where the focus is then: on the record that took the place of the one that was deleted.
  const headAt = (at, count) => (count === 0 ? "#new" : `.record:nth-child(${Math.min(at, count - 1) + 1}) h2`);
  const gone = (each) => become("look", { form }, headAt(ids.indexOf(each), ids.length - 1));
  const changed = (each) => become("look", { id, form }, headAt(chosen.indexOf(each), chosen.length));

  const draw = () => {
    body.replaceChildren(...answers.map((answer, i) => {
      const title = chosen[i];
      const { button, place } = deletion(name, title, answer?.etag, () => gone(title), () => changed(title));
      const link = contract.input && resource.directions !== "read-only" ?
        h("a", { href: `#/${name}/try?id=${encodeURIComponent(title)}` }, "Try", h("span", { class: "hidden" }, ` ${title}`)) : null;
      const head = (...parts) => h("header", {}, h("h2", { tabindex: -1 }, title), parts);
      if (hidden) {
        return h("section", { class: "record" }, head(h("span", { class: "acts" }, link, button)), place,
          h("p", { class: "empty" }, "It is write-only: nothing is shown of it."));
      }
      const document = raw ? { text: "", values: [], root: null } : parse(answer.text);
      const record = raw ? document : recordOf(document);
      const view = raw || form === "bytes" ? bytesView(answer.bytes, record === document ? document : offsetIn(document, record), secrets) :
        form === "text" ? exactView(record === document ? document : offsetIn(document, record), secrets) :
          prettyView(record, meanings, secrets);
      return h("section", { class: "record" },
        head(h("span", { class: "faint" }, counted(answer.bytes.length, "byte")),
          answer.etag ? h("span", { class: "faint code etag", title: "strong ETag" }, answer.etag) : null,
          h("span", { class: "acts" }, link, raw ? null : copyButton(answer.text), button)),
        place,
        name === "easymesh" && form === "pretty" ? drawMesh(record.root, title) : null,
        h("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": `${title} as ${FORMS[form].toLowerCase()}` }, view));
    }));
  };
  draw();
  put(main, tools, chosen.length === 0 ? h("p", {}, "There is no record.") : body);
  return { end: onSecrets(draw) };
}

/** The document's own text with the values of the record in it, each where it stands in that text. */
function offsetIn(document, record) {
  const begin = document.root.children[0].start;
  return { text: document.text, root: document.root,
    values: record.values.map((value) => ({ ...value, start: value.start + begin, end: value.end + begin })) };
}
