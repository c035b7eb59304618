// All resources by group, and the search over names, keys and meanings.

import { h, put, marked, counted } from "./dom.js";
import { wayOf } from "./contract.js";
import * as api from "./api.js";

const GROUPS = {
  wireless: "Wireless", device: "Device", wan_lan: "WAN and LAN", ipv6: "IPv6", diagnostics: "Diagnostics",
  firewall: "Firewall", qos: "QoS", routing: "Routing", pon: "PON", remote_mgmt: "Remote management",
};
const KEYS_SHOWN = 5;

/** The name of a group, for readers. */
export const groupName = (group) => GROUPS[group] ?? group;

/** [[group, its resources]], both in their order. */
export function grouped(resources) {
  const groups = new Map();
  for (const resource of resources)
    groups.set(resource.group, [...(groups.get(resource.group) ?? []), resource]);
  return [...groups].map(([group, those]) => [group, those.sort((a, b) => a.resource.localeCompare(b.resource))]);
}

/** One entry for each key of a resource, with the directions that it is in. */
function merged(keys) {
  const entries = new Map();
  for (const key of keys) {
    const place = `${key.resource} ${key.path}`;
    const entry = entries.get(place) ?? { ...key, directions: [] };
    entry.directions.push(key.direction);
    entry.meaning ||= key.meaning;
    entries.set(place, entry);
  }
  return [...entries.values()].filter((entry) => !entry.path.endsWith("/*"));
}

/** How well words fit: 0 is best, nothing when they do not. */
function rank(words, name, ...texts) {
  const lower = name.toLowerCase();
  const all = [lower, ...texts.map((text) => (text ?? "").toLowerCase())].join(" ");
  if (!words.every((word) => all.includes(word)))
    return null;
  const query = words.join("_");
  if (lower === query)
    return 0;
  if (lower.startsWith(query))
    return 1;
  return words.every((word) => lower.includes(word)) ? 2 : 3;
}

function search(resources, entries, words) {
  const found = [];
  const last = (path) => path.slice(path.lastIndexOf("/") + 1);
  const ofResource = new Map();
  for (const entry of entries) {
    const fit = rank(words, last(entry.path), entry.path, entry.meaning);
    if (fit !== null)
      ofResource.set(entry.resource, [...(ofResource.get(entry.resource) ?? []), { ...entry, rank: fit }]);
  }
  for (const resource of resources) {
    const own = rank(words, resource.resource, groupName(resource.group));
    const keys = (ofResource.get(resource.resource) ?? []).sort((a, b) => a.rank - b.rank);
    if (own !== null || keys.length !== 0)
      found.push({ resource, keys, rank: Math.min(own ?? 9, 0.5 + (keys[0]?.rank ?? 9)) });
  }
  return found.sort((a, b) => a.rank - b.rank);
}

function resourceLink(resource, words = []) {
  const way = wayOf(resource);
  return [h("a", { href: `#/${resource.resource}/${resource.directions === "write-only" ? "try" : "look"}` },
    marked(resource.resource, words)), way ? h("span", { class: "badge" }, way) : null];
}

/** The view. q: what is searched for; without it all resources stand by group. */
export async function find(main, { q }) {
  const words = (q ?? "").toLowerCase().split(/\s+/).filter(Boolean);
  const resources = await api.resources();
  if (words.length === 0) {
    put(main, 
      h("h1", {}, "Resources"),
      h("p", { class: "lead" }, `${resources.length} resources of a sample household, served by the plug-in itself. Look at what it writes, ` +
        "try what it makes of your documents, read what it takes."),
      h("div", { class: "groups" }, grouped(resources).map(([group, those]) => h("section", {},
        h("h2", {}, groupName(group), h("span", { class: "faint" }, ` ${those.length}`)),
        h("ul", {}, those.map((each) => h("li", {}, resourceLink(each), each.records > 1 ?
          h("span", { class: "count", title: counted(each.records, "record") }, `${each.records}`, h("span", { class: "hidden" }, " records")) : null)))))));
    return;
  }
  const found = search(resources, merged(await api.keys()), words);
  const keys = found.reduce((sum, each) => sum + each.keys.length, 0);
  put(main, 
    h("h1", {}, `Search: ${q.trim()}`),
    h("p", { class: "lead", role: "status" }, found.length === 0 ?
      "Nothing has these words in its name, in a key or in a meaning." :
      `${counted(found.length, "resource")}, ${counted(keys, "key")}`),
    h("div", { class: "results" }, found.map(({ resource, keys: those }) => {
      const row = (entry) => h("li", {},
        h("a", { class: "code", href: `#/${resource.resource}/read?key=${encodeURIComponent(entry.directions.at(-1) + entry.path)}` },
          marked(entry.path.slice(1).replaceAll("/*", "[]").replaceAll("/", "."), words)),
        h("span", { class: "faint" }, ` ${[entry.type, entry.range].filter(Boolean).join(", ")}`),
        entry.directions.length === 1 ? h("span", { class: "badge" }, entry.directions[0] === "input" ? "taken only" : "written only") : null,
        entry.meaning ? h("span", { class: "meaning" }, marked(entry.meaning, words)) : null);
      const rest = those.slice(KEYS_SHOWN);
      return h("section", {}, h("h2", {}, resourceLink(resource, words), h("span", { class: "faint" }, groupName(resource.group))),
        h("ul", {}, those.slice(0, KEYS_SHOWN).map(row)),
        rest.length ? h("details", {}, h("summary", {}, `${counted(rest.length, "more key")}`), h("ul", {}, rest.map(row))) : null);
    })));
}
