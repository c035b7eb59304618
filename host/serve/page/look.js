// The records as they are.

import { h, put, counted } from "./dom.js";
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

/** The view. id: the record to show; without it all. */
export async function look(main, name, { id, form = "pretty" }, go) {
  const [contract, resource] = await Promise.all([api.contract(name),
    api.resources().then((all) => all.find((each) => each.resource === name))]);
  if (resource.directions === "write-only") {
    put(main, h("p", { class: "lead" }, "It is write-only: nothing is shown of it. ",
      h("a", { href: contract.input ? `#/${name}/try` : `#/${name}/read` }, contract.input ? "Try a document" : "Read what it takes"), "."));
    return null;
  }
  const ids = await api.ids(name);
  const raw = !contract.output;
  const secrets = secretsOf(contract);
  const meanings = new Map((contract.output?.keys ?? []).map((key) => [key.path, meaningOf(key)]).filter(([, text]) => text));
  const chosen = ids.includes(id) ? [id] : ids;
  const answers = raw ? [await api.records(name)] : await Promise.all(chosen.map((each) => api.records(name, each)));
  const total = answers.reduce((sum, each) => sum + each.bytes.length, 0);
  const body = h("div", { class: "records" });

  const tools = h("div", { class: "tools" },
    ids.length > 1 ? h("label", {}, "Record ", h("select", { id: "record", onchange: (event) =>
      go({ id: event.target.value || undefined, form }) },
    h("option", { value: "" }, `all ${ids.length}`),
    ids.map((each) => h("option", { value: each, selected: each === id }, each)))) : null,
    raw ? null : h("div", { class: "choice", role: "group", "aria-label": "Form" }, Object.entries(FORMS).map(([key, text]) =>
      h("button", { type: "button", "aria-pressed": String(form === key), onclick: () => go({ id, form: key }) }, text))),
    h("span", { class: "faint" }, `${counted(chosen.length, "record")}, ${counted(total, "byte")}`));

  const draw = () => {
    body.replaceChildren(...answers.map((answer, i) => {
      const document = raw ? { text: "", values: [], root: null } : parse(answer.text);
      const record = raw ? document : recordOf(document);
      const title = chosen[i] ?? name;
      const view = raw || form === "bytes" ? bytesView(answer.bytes, record === document ? document : offsetIn(document, record), secrets) :
        form === "text" ? exactView(record === document ? document : offsetIn(document, record), secrets) :
          prettyView(record, meanings, secrets);
      return h("section", { class: "record" },
        h("header", {}, h("h2", {}, title), h("span", { class: "faint" }, counted(answer.bytes.length, "byte")),
          answer.etag ? h("span", { class: "faint code etag", title: "strong ETag" }, answer.etag) : null,
          h("span", { class: "spring" }),
          resource.directions === "both" && contract.input ? h("a", { href: `#/${name}/try?id=${encodeURIComponent(title)}` }, "Try",
            h("span", { class: "hidden" }, ` ${title}`)) : null,
          raw ? null : copyButton(answer.text)),
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
