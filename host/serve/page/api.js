// What the server is asked. Contracts and lists do not change while it runs, so each is asked for once, but for how many
// records there are.

const once = new Map();

/** A refusal: its status and the problem document that explains it. */
export class Refusal extends Error {
  constructor(status, problem) {
    super(problem.detail || problem.title || `status ${status}`);
    this.status = status;
    this.problem = problem;
  }
}

const part = encodeURIComponent;

function recordPath(name, id) {
  return `/api/v1/gateway/${part(name)}${id === undefined ? "" : `/${part(id)}`}`;
}

/** The request that has a record take a document: {method, path}. */
export const writing = (name, id, validate) => ({ method: "PUT", path: `${recordPath(name, id)}?validate=${validate}` });

/** The request that makes a record out of a document. */
export const making = (name, id, validate) => ({ method: "POST", path: `${recordPath(name)}?id=${part(id)}&validate=${validate}` });

async function ask(path, options = {}) {
  const answer = await fetch(path, options);
  if (answer.ok)
    return answer;
  let problem = {};
  try {
    problem = await answer.json();
  } catch {
    problem = { title: answer.statusText };
  }
  throw new Refusal(answer.status, problem);
}

function askOnce(path) {
  if (!once.has(path)) {
    const answer = ask(path).then((each) => each.json());
    once.set(path, answer);
    answer.catch(() => once.delete(path));
  }
  return once.get(path);
}

const document_ = (body, signal) =>
  ({ method: "POST", body, signal, headers: { "Content-Type": "application/json" } });

const RESOURCES = "/api/v1/resources";

/** All resources; how many records each has is as this page left it. */
export const resources = () => askOnce(RESOURCES);

/** All keys of all resources. */
export const keys = () => askOnce("/api/v1/keys");

/** The contract of a resource. */
export const contract = (name) => askOnce(`/api/v1/resources/${part(name)}`);

/** The ids of a resource's records, in order. */
export const ids = async (name) => (await ask(`/api/v1/ids/${part(name)}`)).json();

/** A record or, without an id, all of a resource: {bytes, text, etag}. */
export async function records(name, id) {
  const answer = await ask(recordPath(name, id), { cache: "no-store" });
  const bytes = new Uint8Array(await answer.arrayBuffer());
  return { bytes, text: new TextDecoder().decode(bytes), etag: answer.headers.get("ETag") };
}

/** What becomes of a document, and in what words. target: {id} of the record that it is for, {new: true, id} of a new one. */
export const check = async (name, target, text, signal) =>
  (await ask(`/api/v1/check/${part(name)}?${new URLSearchParams(target)}`, document_(text, signal))).json();

/** What the plug-in does with a document: as text, since numbers in it may be larger than a script's. */
export const trace = async (name, target, text, signal) =>
  (await ask(`/api/v1/trace/${part(name)}?${new URLSearchParams(target)}`, document_(text, signal))).text();

const ifMatch = (match) => (match ? { "If-Match": match } : {});

/** Has the gateway take a document. match: the ETag that the record must still have, or nothing. */
export async function write(name, id, text, validate, match) {
  const { method, path } = writing(name, id, validate);
  return (await ask(path, { method, body: text, headers: { "Content-Type": "application/json", ...ifMatch(match) } })).json();
}

/** Has the gateway make a record out of a document. */
export async function make(name, id, text, validate) {
  const { method, path } = making(name, id, validate);
  const answer = await ask(path, { method, body: text, headers: { "Content-Type": "application/json" } });
  once.delete(RESOURCES);
  return answer.json();
}

/** Deletes a record. match: as of write(). */
export async function remove(name, id, match) {
  await ask(recordPath(name, id), { method: "DELETE", headers: ifMatch(match) });
  once.delete(RESOURCES);
}

/** Brings the beginning back. */
export async function reset() {
  await ask("/api/v1/state:reset", { method: "POST" });
  once.delete(RESOURCES);
}
