// A contract in words, and the view that has both of its directions.

import { h, put } from "./dom.js";
import { lastOf } from "./json.js";
import * as api from "./api.js";

const TYPES = { array: "list", text: "object or list" };
const EFFECTS = {
  replaces: "the new ones replace them",
  appends: "the new ones go behind them",
  prepends: "each new one goes in front of them",
  keeps_first: "the first stays, the new ones go behind it, the others are let go",
  overwrites: "the new ones are written over the first of them, the others stay",
};
const ROOTS = {
  by_list_flag: "An object, or a list of them where the request is for a list",
  array: "Always a list of objects",
  object: "Always an object",
};
const NODES = {
  head: "only the first record is written",
  head_repeated: "a list shows the first record as often as there are records",
};

const alternatives = (words) =>
  (words.length < 2 ? words.join("") : `${words.slice(0, -1).join(", ")} or ${words.at(-1)}`);

function conditionText(condition) {
  const name = condition.path ? lastOf(condition.path) : "";
  const about = "field" in condition ? `${name ? `${name} is absent and ` : ""}the stored ${condition.field}` : name;
  if (!condition.values?.length)
    return `${about} is there`;
  return `${about} is ${condition.except ? "not " : ""}${alternatives(condition.values.map((each) => JSON.stringify(each)))}`;
}

const conditionsText = (conditions) => `when ${alternatives(conditions.map(conditionText))}`;

/** The type of a key, in a word. */
export function typeOf(key) {
  return alternatives((key.types ?? [key.type]).map((type) => TYPES[type] ?? type));
}

/** What a key's values may be, in a few words; empty where there is nothing to say. */
export function rangeOf(key) {
  const ranges = [];
  if (key.bits) {
    const top = 1n << BigInt(key.bits - (key.is_signed ? 1 : 0));
    ranges.push(key.is_signed ? `\u2212${top} \u2026 ${top - 1n}` : `0 \u2026 ${top - 1n}`);
  }
  if (key.longest !== undefined)
    ranges.push(key.longest ? `up to ${key.longest} byte${key.longest === 1 ? "" : "s"}` : "empty");
  if (key.most !== undefined)
    ranges.push(key.least === key.most ? `${key.most}` : key.least ? `${key.least} to ${key.most}` : `up to ${key.most}`);
  else if (key.least)
    ranges.push(`${key.least} or more`);
  return alternatives(ranges);
}

/** What a key means; empty where nobody says it. */
export function meaningOf(key) {
  return key.id ? "the record's identifier" : key.fields?.[0]?.meaning ?? "";
}

/** Whether a key must be there: "yes", "no", "when ...". */
export function necessityOf(key, keys) {
  if (key.path.endsWith("/*"))
    return "";
  if (key.refused)
    return "must not be there";
  if (key.at_least_one)
    return `at least ${alternatives(keys.filter((each) => each.at_least_one === key.at_least_one).map((each) => lastOf(each.path)))}`;
  if (key.required_when)
    return conditionsText(key.required_when);
  return key.required ? "yes" : "no";
}

function presenceOf(key) {
  if (key.path.endsWith("/*"))
    return "";
  return key.always ? "always" : key.when ? conditionsText(key.when) : "sometimes";
}

function inputRemarks(key) {
  return [
    key.looked_at_when && `looked at only ${conditionsText(key.looked_at_when)}`,
    key.only_with && `stored only together with ${key.only_with.map(lastOf).join(" and ")}`,
    key.values && `values of an effect of their own: ${key.values.map((each) => JSON.stringify(each)).join(", ")}`,
    key.type === "real" && "a number without a fraction or exponent stores 0: 2.0 is taken, 2 is not",
    key.checked && "another type is rejected",
    key.skipped && "another type counts as absent",
    key.saturates && "what does not fit becomes the nearest that does",
    key.too_long === "rejected" && "a longer one is rejected",
    key.empty_is_skipped && "an empty one is skipped",
    key.least && "fewer are rejected",
    key.most !== undefined && key.too_many && `more are ${key.too_many}`,
    key.effect && `of the entries that were there: ${EFFECTS[key.effect]}`,
    key.empty_keeps && "an empty list changes nothing",
    key.cleared_when_absent && "absent, it is cleared",
    key.marked_when_absent && "absent, the host is told so",
    key.also_sets && `it also sets ${key.also_sets.map((field) => field.path).join(", ")}`,
  ].filter(Boolean);
}

const outputRemarks = (key) => (key.like ? [`its elements are of the same form as those of ${key.like}`] : []);

function errorsOf(contract) {
  const list = [];
  for (const key of contract.input?.keys ?? []) {
    const name = key.path.slice(1);
    const cases = {
      absent: `${name} is missing`,
      unfit: key.refused ? `${name} is there` : `${name} is of another type`,
      out_of_size: `${name} is too long, or has too many or few elements`,
      unknown: `${name} has another value; the document is accepted all the same`,
    };
    for (const [member, when] of Object.entries(cases)) {
      if (key[member])
        list.push({ when, ...key[member] });
    }
  }
  return list;
}

function rootText(output) {
  const parts = [ROOTS[output.root], NODES[output.nodes], output.empty_without_count && "[] when there is no record",
    output.head_id && "every record has the first one's id", output.pretty && "over several lines",
    output.sorted && "keys sorted by name"];
  return `${parts.filter(Boolean).join("; ")}.`;
}

/** Where a key stands in the view, as an id. */
export const placeOf = (direction, path) => direction + path.replace(/[^A-Za-z0-9_]/g, "-");

function table(keys, direction, third, needOf, remarksOf) {
  const heads = ["Key", "Type", "Range", third, "Meaning and effect", "C field"];
  const rows = keys.map((key) => {
    const depth = key.path.split("/").length - 2;
    const name = lastOf(key.path);
    const remarks = remarksOf(key);
    const fields = (key.fields ?? []).map((field) =>
      (field.type.startsWith("struct ") ? field.path : `${field.type} ${field.path}`));
    return h("tr", { id: placeOf(direction, key.path), tabindex: -1 },
      h("th", { scope: "row", class: `key depth${Math.min(depth, 4)}` }, name === "*" ? "(element)" : name),
      h("td", { class: "type" }, typeOf(key)),
      h("td", { class: "range" }, rangeOf(key)),
      h("td", { "data-name": `${third}:` }, needOf(key, keys)),
      h("td", {}, meaningOf(key), remarks.length ? h("ul", {}, remarks.map((each) => h("li", {}, each))) : null),
      h("td", { class: "code", "data-name": "C:" }, fields.join(", ")));
  });
  return h("table", { class: "keys" },
    h("thead", {}, h("tr", {}, heads.map((head) => h("th", { scope: "col" }, head)))), h("tbody", {}, rows));
}

/** The view of both directions. key: "input/path" or "output/path", which is then brought into view. */
export async function read(main, name, { key }) {
  const contract = await api.contract(name);
  const raw = !contract.input && !contract.output;
  const errors = errorsOf(contract);
  const file = (path, text) => h("a", { href: path }, text);
  put(main, 
    h("p", { class: "files" }, "For programs: ",
      contract.input && [file(`/schemas/${name}.input.schema.json`, "schema of what it takes"), " \u00b7 "],
      contract.output && [file(`/schemas/${name}.output.schema.json`, "schema of what it writes"), " \u00b7 "],
      file("/types/kelmora.d.ts", "TypeScript types"), " \u00b7 ",
      file(`/docs/resources/${name}.html`, "its page in the reference")),
    raw ? h("p", {}, "A block of 8 raw bytes, no JSON.") : null,
    contract.input && h("section", {}, h("h2", { id: "input" }, "What it takes"),
      h("p", { class: "prose" }, "An object. Its keys are looked for in this order, and the first fault ends the reading: what was " +
        "stored before it stays stored. Other keys are ignored. Where nothing else is said, a string that is too long is " +
        "cut, and of a number that is too large the low bits are stored."),
      table(contract.input.keys, "input", "Required", necessityOf, inputRemarks)),
    !raw && !contract.input && h("section", {}, h("h2", {}, "What it takes"),
      h("p", { class: "prose" }, "Nothing: it is read-only. Whatever is sent is accepted, and nothing of it is stored.")),
    contract.output && h("section", {}, h("h2", { id: "output" }, "What it writes"), h("p", {}, rootText(contract.output)),
      table(contract.output.keys, "output", "Written", presenceOf, outputRemarks)),
    !raw && !contract.output && h("section", {}, h("h2", {}, "What it writes"),
      h("p", {}, "Nothing: it is write-only.")),
    errors.length ? h("section", {}, h("h2", { id: "errors" }, "Errors"),
      h("table", { class: "errors" },
        h("thead", {}, h("tr", {}, ["When", "Field", "Message", "Source"].map((each) => h("th", { scope: "col" }, each)))),
        h("tbody", {}, errors.map((error) => h("tr", {}, h("td", {}, error.when), h("td", { class: "code", "data-name": "Field:" }, error.field),
          h("td", {}, error.message), h("td", { "data-name": "Source:" }, error.source)))))) : null,
  );
  if (key) {
    const [direction, ...path] = key.split("/");
    const row = document.getElementById(placeOf(direction, `/${path.join("/")}`));
    if (row) {
      row.classList.add("target");
      return () => { row.scrollIntoView({ block: "center" }); row.focus({ preventScroll: true }); };
    }
  }
  return null;
}

/** A resource's own twist of the directions, as a badge; empty where both exist. */
export const wayOf = (resource) =>
  (resource.directions === "both" ? "" : resource.directions);
